// A command line of a timed task, split into words as a shell splits it, with no shell run.
#include "platform/launcher.h"

#include <gtest/gtest.h>

namespace veldor {
namespace {

TEST(SplitCommandLine, QuotesAndBackslashesAsAShellReadsThem) {
    const std::pair<QString, QStringList> cases[] = {
        {"  notify-send   hello\tthere ", {"notify-send", "hello", "there"}},
        {"sh -c \"date >> '/home/op/log book'\"", {"sh", "-c", "date >> '/home/op/log book'"}},
        {"echo 'a \"b\" \\c' \"\\$HOME \\q\"", {"echo", "a \"b\" \\c", "$HOME \\q"}},
        {"touch a\\ b \"\" x''y", {"touch", "a b", "", "xy"}},
        {"", {}},
    };
    for (const auto& [line, words] : cases)
        EXPECT_EQ(SplitCommandLine(line), words) << line.toStdString();
    EXPECT_FALSE(SplitCommandLine("echo \"open"));
    EXPECT_FALSE(SplitCommandLine("echo 'open"));
    EXPECT_FALSE(ProcessLauncher().start("/nonexistent/veldor-program"));
}

}  // namespace
}  // namespace veldor
