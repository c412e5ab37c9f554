#include "faces/qt/ports/identity.h"

#include <QString>
#include <QSysInfo>
#include <QtGlobal>
#include <array>
#include <pwd.h>
#include <unistd.h>

namespace pixmo::qt {

std::string Identity::userName() const {
    std::array<char, 16384> texts{};
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, texts.data(), texts.size(), &found) == 0 && found && *found->pw_name)
        return found->pw_name;
    return qEnvironmentVariable("USER").toStdString();
}

std::string Identity::computerName() const {
    return QSysInfo::machineHostName().toStdString();
}

} // namespace pixmo::qt
