#include "discovery/country_languages.h"

#include <algorithm>

#include "platform/text/text.h"

namespace quillon {

constexpr std::array<CountryLang, countryCount> countryLangTable{{
    {"US", "en-US", "en-US,en;q=0.9"},
    {"CA", "en-CA", "en-CA,en;q=0.9,fr;q=0.8"},
    {"GB", "en-GB", "en-GB,en;q=0.9"},
    {"AU", "en-AU", "en-AU,en;q=0.9"},
    {"NZ", "en-NZ", "en-NZ,en;q=0.9"},
    {"IE", "en-IE", "en-IE,en;q=0.9"},
    {"DE", "de-DE", "de-DE,de;q=0.9,en;q=0.8"},
    {"AT", "de-AT", "de-AT,de;q=0.9,en;q=0.8"},
    {"CH", "de-CH", "de-CH,de;q=0.9,en;q=0.8"},
    {"FR", "fr-FR", "fr-FR,fr;q=0.9,en;q=0.8"},
    {"BE", "fr-BE", "fr-BE,fr;q=0.9,nl;q=0.8,en;q=0.7"},
    {"IT", "it-IT", "it-IT,it;q=0.9,en;q=0.8"},
    {"ES", "es-ES", "es-ES,es;q=0.9,en;q=0.8"},
    {"PT", "pt-PT", "pt-PT,pt;q=0.9,en;q=0.8"},
    {"NL", "nl-NL", "nl-NL,nl;q=0.9,en;q=0.8"},
    {"PL", "pl-PL", "pl-PL,pl;q=0.9,en;q=0.8"},
    {"SE", "sv-SE", "sv-SE,sv;q=0.9,en;q=0.8"},
    {"NO", "nb-NO", "nb-NO,nb;q=0.9,en;q=0.8"},
    {"DK", "da-DK", "da-DK,da;q=0.9,en;q=0.8"},
    {"FI", "fi-FI", "fi-FI,fi;q=0.9,en;q=0.8"},
    {"RU", "ru-RU", "ru-RU,ru;q=0.9,en;q=0.8"},
    {"UA", "uk-UA", "uk-UA,uk;q=0.9,en;q=0.8"},
    {"TR", "tr-TR", "tr-TR,tr;q=0.9,en;q=0.8"},
    {"JP", "ja-JP", "ja-JP,ja;q=0.9,en;q=0.8"},
    {"KR", "ko-KR", "ko-KR,ko;q=0.9,en;q=0.8"},
    {"CN", "zh-CN", "zh-CN,zh;q=0.9,en;q=0.8"},
    {"TW", "zh-TW", "zh-TW,zh;q=0.9,en;q=0.8"},
    {"HK", "zh-HK", "zh-HK,zh;q=0.9,en;q=0.8"},
    {"BR", "pt-BR", "pt-BR,pt;q=0.9,en;q=0.8"},
    {"MX", "es-MX", "es-MX,es;q=0.9,en;q=0.8"},
    {"AR", "es-AR", "es-AR,es;q=0.9,en;q=0.8"},
    {"IN", "en-IN", "en-IN,en;q=0.9,hi;q=0.8"},
    {"AM", "hy-AM", "hy-AM,hy;q=0.9,en;q=0.8"},
    {"GE", "ka-GE", "ka-GE,ka;q=0.9,en;q=0.8"},
    {"IL", "he-IL", "he-IL,he;q=0.9,en;q=0.8"},
    {"AE", "ar-AE", "ar-AE,ar;q=0.9,en;q=0.8"},
    {"SA", "ar-SA", "ar-SA,ar;q=0.9,en;q=0.8"},
    {"EG", "ar-EG", "ar-EG,ar;q=0.9,en;q=0.8"},
}};

const CountryLang* findCountryLang(std::string_view countryCode) {
  const std::string code = platform::upperCased(countryCode);
  const auto* row = std::find_if(countryLangTable.begin(), countryLangTable.end(),
                                 [&](const CountryLang& country) { return country.cc == code; });
  return row == countryLangTable.end() ? nullptr : row;
}

LanguagePair lookupCountryLang(std::string_view countryCode) {
  const CountryLang* row = findCountryLang(countryCode);
  if (row == nullptr) return {"en-US", "en-US,en;q=0.9"};
  return {row->primary, row->accept};
}

}  // namespace quillon
