#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "launch_table.h"

/// The built executable without a window.
namespace quillon::tests {
namespace {

using Texts = std::vector<std::string>;

TEST(PassthroughLaunch, ComesToWhatItsRowSays) {
  for (const char* name :
       {"passthrough", "engine missing", "engine that is no program", "start page too long"}) {
    TableLaunch launch(rowOf(name), "socks5://h:1");
    // Started by a symbolic link in another folder, such as a package's in /usr/bin: the bundle and
    // the catalogue are found.
    launch.executable = launch.home.path() / "nimbra";
    std::filesystem::create_symlink(NIMBRA_EXECUTABLE, launch.executable);
    launch.expect(launch.run(), true);
  }
}

TEST(PassthroughLaunch, WithoutAProfileTheUsersOwnFolderCounts) {
  // Arguments, umask, and the entries that replace the HOME with the folder. The user database has
  // the folder, too.
  using Row = std::tuple<Texts, mode_t, Texts>;
  for (const auto& [arguments, mask, home] : {Row{Texts(), 0, {}},
                                              {{"--user-data-dir="}, 077, {}},
                                              {{"--user-data-dir", "/profile"}, 0777, {"HOME="}},
                                              {Texts(), 022, {"OTHER=1"}}}) {
    Launch launch;
    const std::string folder = launch.home.path();
    const std::string ids = std::to_string(::getuid()) + ":" + std::to_string(::getgid());
    launch.home.write(
        "passwd",
        std::string("user:x:").append(ids).append("::").append(folder).append(":/bin/sh\n"));
    launch.home.write("group", "user:x:0:\n");
    launch.arguments = arguments;
    if (!home.empty()) {
      launch.environment.front() = home.front();
      launch.environment.insert(
          launch.environment.end(),
          {"LD_PRELOAD=libnss_wrapper.so", "NSS_WRAPPER_PASSWD=" + folder + "/passwd",
           "NSS_WRAPPER_GROUP=" + folder + "/group", "ASAN_OPTIONS=verify_asan_link_order=0"});
    }
    launch.prepare = [&folder, newMask = mask] {
      if (::chdir(folder.c_str()) != 0) ::_exit(127);
      ::umask(newMask);
    };
    EXPECT_EQ(0, launch.run().status);
    const Path reports = launch.home.path() / "Library/Application Support/Quillon";
    const Path report = reports / launch.resultFile().filename();
    EXPECT_NE(std::string::npos, contentOf(report).find(R"("status":"passthrough",)"));
    using std::filesystem::perms;
    EXPECT_EQ(perms(0600), std::filesystem::status(report).permissions());
    for (const Path& created : {reports, reports.parent_path(), launch.home.path() / "Library"}) {
      EXPECT_EQ(perms::owner_all, std::filesystem::status(created).permissions()) << created;
    }
    launch.home.write(reports / "command-line.json", R"({"start-page":"per-user"})");
    const Texts engine = sortedFacts(launch.run(), 'A');
    EXPECT_EQ(1, std::count(engine.begin(), engine.end(), "per-user"));
  }
}

TEST(FatalReport, NamesTheEngineThatIsNone) {
  const Path folder = Path(NIMBRA_EXECUTABLE).parent_path();
  const Path bundle = folder.parent_path().parent_path();
  Launch launch;
  launch.prepare = [&] {
    if (::chdir(launch.home.path().c_str()) != 0) ::_exit(127);
  };
  const std::vector<std::pair<std::string, std::string>> rows{
      {"sub/engine", launch.home.path() / "sub/engine"},
      {"", bundle / "Contents/Frameworks/Nimbra Engine.app/Contents/MacOS/Nimbra Engine"}};
  for (const auto& [engine, path] : rows) {
    launch.engine = engine;
    EXPECT_EQ("[quillon-launcher] Engine binary not found:\n" + path + "\n", launch.run().errors);
  }
  const std::string inBundle = launch.run().errors;
  std::filesystem::create_directory_symlink(folder, launch.home.path() / "folder");
  launch.home.write("script", "#!" NIMBRA_EXECUTABLE "\n");
  std::filesystem::permissions(launch.home.path() / "script", std::filesystem::perms::owner_all);
  for (const Path& way : {launch.home.path() / "folder/Nimbra", folder / "../MacOS/Nimbra",
                          Path("/" + folder.native() + "/Nimbra"), launch.home.path() / "script"}) {
    launch.executable = way;
    EXPECT_EQ(inBundle, launch.run().errors) << way;
  }
  launch.prepare = [] {
    int ends[2];
    if (::pipe(ends) != 0) ::_exit(127);
    ::dup2(ends[1], STDERR_FILENO);
    ::close(ends[0]);
  };
  EXPECT_EQ(1, launch.run().status) << "a gone reader of standard error changes nothing";
}

TEST(FatalReport, WebglValueTooLongIsPassedOnAndRefused) {
  LaunchRow row = rowOf("start page too long");
  row.overlay = R"("webgl-profile":"p","start-page":"x")";
  TableLaunch launch(row, "");
  launch.executable = launch.home.path() / "Nimbra";
  std::filesystem::copy_file(NIMBRA_EXECUTABLE, launch.executable);
  launch.home.write("quillon-webgl-profiles.json",
                    R"({"profiles":{"p":{"s":")" + std::string(2000000, 'x') + "\"}}}");
  launch.expect(launch.run(), true);
}

}  // namespace
}  // namespace quillon::tests
