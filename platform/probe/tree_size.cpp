#include "platform/probe/tree_size.h"

#include <filesystem>
#include <system_error>

namespace quillon::platform {
namespace {

void count(TreeSize& size, const std::filesystem::directory_entry& entry) {
  std::error_code error;
  const auto status = entry.symlink_status(error);
  if (std::filesystem::is_directory(status)) return;
  ++size.files;
  if (!std::filesystem::is_regular_file(status)) return;
  const auto bytes = entry.file_size(error);
  if (error) {
    size.isWhole = false;
  } else {
    size.bytes += bytes;
  }
}

}  // namespace

TreeSize treeSizeOf(const Path& path) {
  TreeSize size;
  std::error_code error;
  const std::filesystem::directory_entry top(path.text(), error);
  if (!top.is_directory(error) || top.is_symlink(error)) {
    count(size, top);
    return size;
  }
  std::filesystem::recursive_directory_iterator entry(path.text(), error);
  for (; !error && entry != std::filesystem::recursive_directory_iterator();
       entry.increment(error)) {
    count(size, *entry);
  }
  if (error) size.isWhole = false;
  return size;
}

}  // namespace quillon::platform
