// The settings file holds any bytes: it loads, its values read, and any value read is written
// back and read again unchanged.
#include "platform/ini_store.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace veldor;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static QTemporaryDir dir;
    {
        QFile file(dir.path() + "/VELDOR.ini");
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) std::abort();
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
    IniStore store(dir.path());
    store.onTrouble = [](const QString&) {};
    store.get("VELDOR", "Settings", "RigType", "Not set");
    for (const auto& [key, value] : store.getAll("VELDOR", "Settings")) {
        if (store.get("VELDOR", "settings", key, "<none>") != value) std::abort();
        if (UnescapeIniValue(EscapeIniValue(value)) != value) std::abort();
    }
    return 0;
}
