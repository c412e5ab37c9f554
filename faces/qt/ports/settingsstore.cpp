#include "faces/qt/ports/settingsstore.h"

#include "core/base/product.h"
#include "faces/qt/ports/texts.h"

#include <QSettings>

namespace pixmo::qt {

namespace {

/// "Organisation Application"
QSettings settings() {
    const QString name = toQt(product::ApplicationName);
    const qsizetype blank = name.indexOf(QLatin1Char(' '));
    return QSettings(QSettings::IniFormat, QSettings::UserScope, name.left(blank), name.mid(blank + 1));
}

QString path(const std::string& section, const std::string& key) {
    return toQt(section) + QLatin1Char('/') + toQt(key);
}

} // namespace

std::string SettingsStore::GetSetting(const std::string& section, const std::string& key,
                                      const std::string& defaultValue) const {
    return settings().value(path(section, key), toQt(defaultValue)).toString().toStdString();
}

void SettingsStore::SaveSetting(const std::string& section, const std::string& key,
                                const std::string& value) {
    settings().setValue(path(section, key), toQt(value));
}

} // namespace pixmo::qt
