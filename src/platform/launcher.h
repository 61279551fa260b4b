// Starting other programs: a command line split into words as a shell splits it, the program
// started detached, and no shell in between.
#pragma once

#include "link/platform.h"

#include <optional>

namespace veldor {

// The words of a command line: blanks separate words; a backslash takes the next character
// as it is; single quotes keep everything up to the next one; double quotes keep everything up
// to the next one but for a backslash before $, `, ", \ or a line end. Nothing is expanded.
// None for an unterminated quote.
std::optional<QStringList> SplitCommandLine(const QString& commandLine);

class ProcessLauncher : public Launcher {
  public:
    bool start(const QString& commandLine) override;
};

}  // namespace veldor
