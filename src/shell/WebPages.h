#pragma once

namespace railwright {

/// The pages behind the entries of the Internet menu. The maintainers set them; until then they lie under a
/// domain that leads nowhere.
namespace WebPages {
inline constexpr const char* NoLimits = "https://nolimits.example/";
inline constexpr const char* Vesna = "https://ridehaven.example/vesna/";
inline constexpr const char* Ridehaven = "https://ridehaven.example/";
inline constexpr const char* Sweetgrade = "https://sweetgrade.example/";
inline constexpr const char* Loopkammer = "https://loopkammer.example/";
inline constexpr const char* Brisko = "https://brisko.example/";
} // namespace WebPages

} // namespace railwright
