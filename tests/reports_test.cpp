#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <future>
#include <thread>

#include "launch_fixture.h"
#include "platform/dispatch/dispatch.h"
#include "platform/process/process.h"
#include "platform/text/json.h"
#include "reports/report_file.h"
#include "reports/report_text.h"

namespace quillon {
namespace {

using platform::jsonEscape;
using tests::contentOf;
using tests::TemporaryFolder;

TEST(ReportText, EscapesWhatJsonDemandsAndNothingElse) {
  EXPECT_EQ(R"(\"\\\t\n\r)", jsonEscape("\"\\\t\n\r"));
  EXPECT_EQ(R"(\u0000\u0001\u0008\u000c\u001b\u001f )", jsonEscape({"\0\1\b\f\x1B\x1F ", 7}));
  EXPECT_EQ("/\x7F\u00E9\u2028\U0001F600", jsonEscape("/\x7F\u00E9\u2028\U0001F600"));
  EXPECT_EQ("{}\n", writeJsonObject({}));
  EXPECT_EQ("{\"a\\\"\":\"b\\\"\",\"n\":-9223372036854775808,\"a\\\"\":null,\"z\":0}\n",
            writeJsonObject({{"a\"", "b\""}, {"n", INT64_MIN}, {"a\"", {}}, {"z", 0}}));
}

TEST(ReportText, TimestampIsUtcInSeconds) {
  const auto at = [](std::int64_t milliseconds) {
    return timestampText(
        std::chrono::system_clock::time_point(std::chrono::milliseconds(milliseconds)));
  };
  EXPECT_EQ("2026-03-01T14:05:09Z", at(1772373909999));
  EXPECT_EQ("1970-01-01T00:00:00Z", at(0));
  EXPECT_EQ("1969-12-31T23:59:59Z", at(-1)) << "a clock that was never set";
}

TEST(ReportFile, IsReplacedWholeOrLeftAlone) {
  const TemporaryFolder folder;
  const auto target = folder.path() / "a/b/report";
  const auto write = [](const tests::Path& url) {
    return writeReportAtomically([] { return std::string("new"); }, url);
  };
  EXPECT_TRUE(write(target)) << "parents are created";
  EXPECT_EQ("new", contentOf(target));
  folder.write("kept", "kept");
  folder.write("a/b/folder/inside", "x");
  std::filesystem::create_symlink(folder.path() / "kept", folder.path() / "a/b/link");
  EXPECT_TRUE(write(folder.path() / "a/b/folder")) << "whatever has the name makes room";
  EXPECT_TRUE(write(folder.path() / "a/b/link"));
  EXPECT_EQ("kept", contentOf(folder.path() / "kept"));
  const auto fail = [] {
    ADD_FAILURE() << "no text is made without a folder for it";
    return std::string();
  };
  EXPECT_FALSE(writeReportAtomically(fail, folder.path() / "kept/report"));
  for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "a/b")) {
    EXPECT_EQ(std::string::npos, entry.path().native().find(".tmp")) << entry.path();
  }
}

TEST(ReportFile, ItsUnfinishedFileIsItsOwn) {
  const TemporaryFolder folder;
  const tests::Path report = folder.path() / "report";
  const auto writeAnother = [&] {
    EXPECT_TRUE(writeReportAtomically([] { return std::string("of another"); }, report));
  };
  EXPECT_TRUE(writeReportAtomically(
      [&] {
        std::thread(writeAnother).join();
        return std::string("the last");
      },
      report));
  EXPECT_EQ("the last", contentOf(report));
}

TEST(ReportFile, IsFinishedBeforeTheProcessEnds) {
  const TemporaryFolder folder;
  const auto endWhileWriting = [&] {
    std::promise<void> begun;
    std::thread([&] {
      (void)writeReportAtomically(
          [&] {
            begun.set_value();
            platform::sleepFor(std::chrono::milliseconds(200));
            return std::string("whole");
          },
          folder.path() / "report");
    }).detach();
    begun.get_future().wait();
    platform::endProcess(7);
  };
  EXPECT_EXIT(endWhileWriting(), testing::ExitedWithCode(7), "");
  EXPECT_EQ("whole", contentOf(folder.path() / "report"));
}

TEST(ReportFile, WhatCannotBeReplacedStays) {
  // Permissions do not restrict the superuser.
  const uid_t user = ::geteuid();
  if (user == 0) {
    ASSERT_EQ(0, ::seteuid(65534));
  }
  const TemporaryFolder folder;
  const auto expectOldReport = [&] {
    EXPECT_FALSE(
        writeReportAtomically([] { return std::string(100, 'x'); }, folder.path() / "report"));
    EXPECT_EQ("old", contentOf(folder.path() / "report"));
    const auto entries = std::filesystem::directory_iterator(folder.path());
    EXPECT_EQ(1, std::distance(begin(entries), end(entries))) << "an unfinished file is left over";
  };
  folder.write("report", "old");
  std::filesystem::permissions(folder.path(), std::filesystem::perms(0500));
  expectOldReport();
  std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_all);
  rlimit before{};
  ASSERT_EQ(0, ::getrlimit(RLIMIT_FSIZE, &before));
  const rlimit small{10, before.rlim_max};
  ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &small));
  expectOldReport();
  ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &before));
  EXPECT_EQ(0, ::seteuid(user));
}

}  // namespace
}  // namespace quillon
