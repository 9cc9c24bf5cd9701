#pragma once

namespace railwright {

/// To be called before long arithmetic. A library that works with wide vectors, as the one that draws the
/// window does, can leave the upper halves of the processor's registers in use; every narrow operation after
/// that then takes several times as long. Changes no value.
inline void FreeWideRegisters() {
#if defined(__x86_64__) && !defined(__AVX__) // for wide registers the compiler sees to it
    static const bool hasWide = __builtin_cpu_supports("avx");
    if (hasWide)
        asm volatile("vzeroupper");
#endif
}

} // namespace railwright
