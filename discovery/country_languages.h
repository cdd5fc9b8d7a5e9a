#pragma once

#include <array>
#include <string_view>

namespace quillon {

/// The languages of a browser in one country.
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

/// The row of a country; the code can be in any case. Null if the table has no such row. Any
/// thread.
[[nodiscard]] const CountryLang* findCountryLang(std::string_view countryCode);

/// The languages of a country; the code can be in any case and is not trimmed. For a country that
/// is not in the table, the languages of the United States. Any thread.
[[nodiscard]] LanguagePair lookupCountryLang(std::string_view countryCode);

}  // namespace quillon
