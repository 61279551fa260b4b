// The settings file holds any bytes: they parse as the store's load parses them, their values
// read, and any value read is escaped and unescaped unchanged.
#include "platform/ini_store.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const IniDocument doc = IniDocument::parse(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    doc.find("Settings", "RigType");
    for (const auto& [key, value] : doc.all("Settings")) {
        const QString* found = doc.find("settings", key);
        if (!found || *found != value) std::abort();
        if (UnescapeIniValue(EscapeIniValue(value)) != value) std::abort();
    }
    return 0;
}
