#include "platform/process/environment.h"

#include <algorithm>

namespace quillon::platform {
namespace {

bool isNamed(const char* entry, std::string_view name) {
  const std::string_view text = entry == nullptr ? "" : entry;
  return text.size() > name.size() && text.starts_with(name) && text[name.size()] == '=';
}

}  // namespace

Environment::Environment(char* const* entries) {
  std::size_t count = 0;
  while (entries != nullptr && entries[count] != nullptr) ++count;
  entries_.reserve(count + 1);
  entries_.assign(entries, entries + count);
  entries_.push_back(nullptr);
}

std::optional<std::string_view> Environment::value(std::string_view name) const {
  for (const char* entry : entries_) {
    if (isNamed(entry, name)) return std::string_view(entry).substr(name.size() + 1);
  }
  return std::nullopt;
}

Environment Environment::without(std::span<const std::string_view> names) const {
  Environment rest = *this;
  std::erase_if(rest.entries_, [&](const char* entry) {
    return std::any_of(names.begin(), names.end(),
                       [&](std::string_view name) { return isNamed(entry, name); });
  });
  return rest;
}

const Environment& startEnvironment() {
  // Never destroyed: a background thread may use it while the process ends.
  static const Environment& environment = *new Environment(liveEnvironment());
  return environment;
}

}  // namespace quillon::platform
