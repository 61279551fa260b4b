#include "link/core.h"

namespace veldor {

QString GetSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                   const QString& defaultValue) {
    return c.p.store->get(appName, section, key, defaultValue);
}

void SaveSetting(Core& c, const QString& appName, const QString& section, const QString& key,
                 const QString& value) {
    c.p.store->save(appName, section, key, value);
}

void SaveSettings(Core& c, const QString& appName, const QString& section,
                  const QList<QPair<QString, QString>>& values) {
    c.p.store->saveAll(appName, section, values);
}

QList<QPair<QString, QString>> GetAllSettings(Core& c, const QString& appName,
                                              const QString& section) {
    return c.p.store->getAll(appName, section);
}

}  // namespace veldor
