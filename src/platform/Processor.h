#pragma once

namespace railwright {

/// Prevents a slowdown; call it before long calculations. Libraries that use wide vectors, such as Qt, may
/// leave the upper halves of the vector registers in use. Every narrow operation then takes several times as
/// long. Changes no value.
inline void FreeWideRegisters() {
#if defined(__x86_64__) && !defined(__AVX__) // with AVX, the compiler handles this itself
    static const bool hasWide = __builtin_cpu_supports("avx");
    if (hasWide)
        asm volatile("vzeroupper");
#endif
}

} // namespace railwright
