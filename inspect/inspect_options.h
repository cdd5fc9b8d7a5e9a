#pragma once

#include <string>
#include <vector>

namespace quillon {

/// How the program was called.
struct InspectOptions {
  bool wantsHelp = false;
  bool wantsVersion = false;
  bool discovers = false;
  bool printsJson = false;
  bool mayColor = true;
  /// What stands behind "--": the launch's arguments.
  std::vector<std::string> launchArguments;
  /// What is wrong with the arguments; empty if they are correct.
  std::string error;
};

/// Reads the arguments, program path first; there may be none. Pure.
[[nodiscard]] InspectOptions readOptions(const std::vector<std::string>& argumentVector);

/// The page for --help.
[[nodiscard]] std::string helpPage();

}  // namespace quillon
