#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <thread>

#include "launch_fixture.h"
#include "platform/core/descriptor.h"
#include "platform/dispatch/dispatch.h"
#include "platform/files/files.h"
#include "platform/probe/json_problems.h"
#include "platform/process/child_process.h"
#include "platform/process/process.h"
#include "platform/text/json.h"
#include "platform/text/text.h"
#include "platform/ui/display_text.h"

namespace quillon::platform {
namespace {

using namespace std::chrono_literals;
using tests::TemporaryFolder;

std::string nested(std::size_t depth) {
  return "{\"a\":" + std::string(depth - 1, '[') + std::string(depth - 1, ']') + "}";
}

TEST(Json, ReadsObjectsOnlyAndStrictly) {
  const std::vector<std::string> readable{"{}", " \n{\"a\":null}\t", "\xEF\xBB\xBF{}", nested(512),
                                          "{\"a\":\"\\u0000\\ud83d\\ude00\"}"};
  for (const std::string& text : readable) EXPECT_TRUE(parseJsonObject(text)) << text;
  // The kind of the fault, and its line and column.
  const std::vector<std::pair<std::string, std::array<std::size_t, 3>>> unreadable{
      {"", {0, 1, 1}},
      {"[]", {1, 0, 0}},
      {"7", {1, 0, 0}},
      {"{", {0, 1, 2}},
      {"{}x", {0, 1, 3}},
      {"{'a':1}", {0, 1, 2}},
      {"{\"a\":1,}", {0, 1, 8}},
      {"// \n{}", {0, 1, 1}},
      {"{\n\"a\":\n \"\xFF\"}", {0, 3, 3}},
      {"{\"a\":NaN}", {0, 1, 6}},
      {"{\"a\":1e999}", {0, 1, 10}},
      {nested(513), {2, 0, 0}},
      {std::string(100000, '['), {1, 0, 0}},
      {std::string("{\"a\0\":1}", 8), {0, 1, 4}},
      {std::string("{}\n\0x", 5), {0, 2, 1}}};
  for (const auto& [text, expected] : unreadable) {
    EXPECT_FALSE(parseJsonObject(text)) << text;
    const JsonFault fault = findJsonProblems(text).fault.value();
    const std::array found{static_cast<std::size_t>(fault.kind), fault.line, fault.column};
    EXPECT_EQ(expected, found) << text;
  }
}

TEST(Json, LastOfEqualKeysCountsAndOrderStays) {
  std::string text = "{\"b\":1,\"a\":2,\"b\":{\"x\":3}";
  for (int i = 0; i < 1000; ++i) text += ",\"k" + std::to_string(i) + "\":" + std::to_string(i);
  const auto object = parseJsonObject(text + "}");
  ASSERT_TRUE(object);
  EXPECT_EQ(1002U, object->members().size());
  EXPECT_EQ("a", object->members()[0].key);
  EXPECT_NE(nullptr, object->find<JsonObject>("b"));
  EXPECT_EQ("999", numberText(*object->find<JsonNumber>("k999")));
  EXPECT_EQ(nullptr, object->find("k1000"));
  EXPECT_EQ("{}", compactJsonText(*parseJsonObject(text + "}", JsonDepth::members)->find("b")));
}

TEST(Json, NumbersHaveDefinedTexts) {
  using Row = std::array<std::string, 3>;  // JSON, text, integer part
  for (const auto& [json, text, integerPart] :
       {Row{"0", "0", "0"},
        {"-0.0", "-0", "0"},
        {"-0.5", "-0.5", "0"},
        {"52.52", "52.52", "52"},
        {"1e-7", "0.0000001", "0"},
        {"-9223372036854775808", "-9223372036854775808", "-9223372036854775808"},
        {"18446744073709551615", "18446744073709551615", "18446744073709551615"},
        {"18446744073709551616", "18446744073709551616", "18446744073709551616"}}) {
    const auto object = parseJsonObject("{\"n\":" + json + "}");
    ASSERT_TRUE(object) << json;
    const JsonNumber& number = *object->find<JsonNumber>("n");
    EXPECT_EQ(text, numberText(number));
    EXPECT_EQ(integerPart, integerPartText(number)) << json;
    EXPECT_EQ(std::stod(text) != 0, isNonZero(number)) << json;
  }
}

TEST(Text, CountsAndCutsUserPerceivedCharacters) {
  const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467";
  const std::string flags = "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7";
  // The first two of three characters each.
  for (const std::string& two : {std::string("ab"), std::string("e\u0301x\u0301"), family + "!",
                                 flags, std::string("\r\n\r\n"), std::string("\xFF\xFE")}) {
    EXPECT_EQ(3U, characterCount(two + "y", 100)) << two;
    EXPECT_EQ(two, firstCharacters(two + "y", 2));
    EXPECT_EQ(two, firstCharacters(two, 3));
  }
  EXPECT_EQ(5U, characterCount(std::string(1000, 'x'), 5));
}

TEST(Text, TrimsByUnicodeClass) {
  EXPECT_EQ("a b", trimBlanks("\t \u00A0\u3000a b\u2003 \t"));
  EXPECT_EQ("\na\n", trimBlanks(" \na\n "));
  EXPECT_EQ("", trimBlanks(" \t "));
  EXPECT_EQ("{ ", skipWhitespace("\r\n\v\f\u0085\u2028\u3000 { "));
  for (const char* lineBreak : {"\n", "\v", "\f", "\r", "\u0085", "\u2028", "\u2029"}) {
    EXPECT_EQ(" a\xFF", firstLine(" a\xFF" + std::string(lineBreak) + "b")) << lineBreak;
  }
  EXPECT_EQ("GROSS FI DE \u212A", upperCased("gro\u00DF \uFB01 dE \u212A"));
  EXPECT_EQ("off \u00E9", lowerCased("OfF \u00C9"));
}

TEST(Text, Utf8CheckIsStrict) {
  EXPECT_TRUE(isValidUtf8("a\u00E9\u20AC\U0001F600\xEF\xBF\xBF"));
  for (const char* text : {"\x80", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_FALSE(isValidUtf8(text)) << text;
  }
}

TEST(Text, ShownTextIsValidAndBounded) {
  EXPECT_EQ("abcd", ui::displayText("abcd", 4));
  EXPECT_EQ("ab…f\uFFFD", ui::displayText("abcdef\xFF", 4));
  const std::string eight = "1\n2\n3\n4\n5\n6\n7\n8";
  EXPECT_EQ(eight, ui::firstParagraphs(eight));
  EXPECT_EQ(eight + "\n…", ui::firstParagraphs(eight + "\n9\n"));
}

TEST(Files, ClosedStandardStreamsGetPlaceholdersThatCloseOnExec) {
  for (unsigned closed = 0; closed < 8; ++closed) {
    const auto isClosed = [=](int stream) { return (closed >> stream & 1U) != 0; };
    const auto occupy = [&] {
      for (const int stream : {0, 1, 2}) {
        if (isClosed(stream)) ::close(stream);
      }
      occupyClosedStandardStreams();
      int wrong = 0;
      for (const int stream : {0, 1, 2}) {
        if (::fcntl(stream, F_GETFD) != (isClosed(stream) ? FD_CLOEXEC : 0)) ++wrong;
      }
      ::_exit(wrong);
    };
    EXPECT_EXIT(occupy(), testing::ExitedWithCode(0), "") << closed;
  }
}

TEST(Files, PathsAreTakenApart) {
  using Parts = std::array<std::string, 3>;
  for (const auto& [path, folder, name] :
       {Parts{"a", "", "a"}, {"//a", "/", "a"}, {"/a//b", "/a", "b"}, {"/a/b/", "/a/b", ""}}) {
    const Parts found{path, Path(path).folder().text(), std::string(Path(path).name())};
    EXPECT_EQ((Parts{path, folder, name}), found);
  }
}

TEST(Files, ReadsRegularFilesOnly) {
  const TemporaryFolder folder;
  folder.write("file", std::string("a\0b", 3));
  folder.write("empty", "");
  folder.write("large", "");
  ASSERT_EQ(0, ::truncate((folder.path() / "large").c_str(), off_t{256 << 20} + 1));
  ASSERT_EQ(0, ::mkfifo((folder.path() / "pipe").c_str(), 0600));
  EXPECT_EQ(std::string("a\0b", 3), readFile(folder.path() / "file"));
  EXPECT_EQ("", readFile(folder.path() / "empty"));
  for (const tests::Path& path :
       {folder.path(), folder.path() / "pipe", folder.path() / "missing", folder.path() / "large",
        tests::Path("/dev/zero"), tests::Path()}) {
    EXPECT_FALSE(readFile(path)) << path;
  }
}

ChildRun runShell(const std::string& script, std::chrono::milliseconds limit = 10s) {
  return runChild({"/bin/sh", {"-c", script}}, {limit, 1000, 100});
}

TEST(Process, TellsHowAChildEnded) {
  EXPECT_EQ(7, runShell("exit 7").exitStatus);
  EXPECT_EQ(128 + SIGTERM, runShell("kill -TERM $$").exitStatus);
  EXPECT_EQ(ENOENT, runChild({"/missing", {}}, {1s, 1, 1}).startError);
  const ChildRun flooded = runShell("head -c 3000000 /dev/zero >&2; head -c 2000000 /dev/zero");
  EXPECT_EQ(0, flooded.exitStatus);
  EXPECT_EQ(100U, flooded.output.size());
  EXPECT_EQ(2000000U, flooded.outputBytes);
}

TEST(Process, NeverWaitsBeyondItsLimit) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(128 + SIGKILL, runShell("exec sleep 30", 200ms).exitStatus);
  EXPECT_EQ(128 + SIGKILL, runShell("exec sleep 30 >&- 2>&-", 200ms).exitStatus);
  EXPECT_EQ(3, runShell("sleep 2 & exit 3", 200ms).exitStatus) << "a grandchild keeps the pipes";
  EXPECT_LT(std::chrono::steady_clock::now() - start, 10s);
}

TEST(Process, ChildEndsWithTheProcessByEveryWayOut) {
  for (const int signal : {SIGHUP, SIGINT, SIGTERM, 0}) {
    // The child gets one end as its standard input and reports through it that it runs.
    std::array<int, 2> ends{};
    ASSERT_EQ(0, ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()));
    char byte = 0;
    const pid_t process = ::fork();
    if (process == 0) {
      ::dup2(ends[1], STDIN_FILENO);
      std::thread([] { (void)runShell("echo >&0; exec sleep 30", 30s); }).detach();
      // The thread sanitizer delays handlers while a thread is in `read`, but not in `poll`.
      pollfd order{ends[1], POLLIN, 0};
      (void)::poll(&order, 1, -1);
      endProcess(::read(ends[1], &byte, 1) == 1 ? 7 : 1);
    }
    ::close(ends[1]);
    ASSERT_EQ(1, ::read(ends[0], &byte, 1));
    ASSERT_EQ(0, signal == 0 ? ::write(ends[0], "x", 1) - 1 : ::kill(process, signal));
    pollfd end{ends[0], POLLIN, 0};
    EXPECT_EQ(1, ::poll(&end, 1, 5000)) << "the process or its child lives on";
    ::kill(process, SIGKILL);
    int status = 0;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(signal == 0 ? 7 << 8 : signal, status);
    ::close(ends[0]);
  }
}

TEST(Dispatch, RunsPostsInOrderAndNeverInsideThePost) {
  std::vector<int> order;
  postToMain([&] {
    order.push_back(1);
    postToMain([&] { order.push_back(4); });
    order.push_back(2);
  });
  postToMain([&] { order.push_back(3); });
  EXPECT_TRUE(order.empty());
  runPostedTasks();
  EXPECT_EQ((std::vector<int>{1, 2, 3}), order);
  runPostedTasks();
  EXPECT_EQ((std::vector<int>{1, 2, 3, 4}), order);
}

}  // namespace
}  // namespace quillon::platform
