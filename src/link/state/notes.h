// The ring of frequency notes: jotted while tuning, kept until the program ends.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct NotesState {};

}  // namespace veldor
