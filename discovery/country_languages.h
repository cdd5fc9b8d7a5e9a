#pragma once

#include <array>
#include <string_view>

namespace quillon {

/// The languages that a browser in one country would use.
struct CountryLang {
  /// ISO 3166-1 alpha-2, upper case.
  std::string_view cc;
  /// The browser language (BCP 47).
  std::string_view primary;
  /// The Accept-Language list with its quality values (RFC 9110).
  std::string_view accept;
};

struct LanguagePair {
  std::string_view primary;
  std::string_view accept;

  bool operator==(const LanguagePair&) const = default;
};

inline constexpr std::size_t countryCount = 38;
extern const std::array<CountryLang, countryCount> countryLangTable;

/// The row of a country, its code in any case; null when the table does not have it. Any thread.
[[nodiscard]] const CountryLang* findCountryLang(std::string_view countryCode);

/// The languages of a country, its code in any case; those of the United States when the table does
/// not have it. The code is not trimmed. Any thread.
[[nodiscard]] LanguagePair lookupCountryLang(std::string_view countryCode);

}  // namespace quillon
