#include "faces/com/face/container.h"

#include "faces/com/base/widetext.h"

namespace pixmo::com {

namespace {} // namespace

bool Container::userMode() const {
    return link_->host() && link_->host()->userMode();
}

Colour Container::ambientBackColor() const {
    return link_->host() ? link_->host()->ambientBackColor() : ButtonFace;
}

Font Container::ambientFont() const {
    return link_->host() ? link_->host()->ambientFont() : Font();
}

bool Container::mayWriteFiles() const {
    return link_->host() && link_->host()->mayWriteFiles();
}

void Container::startProgram(const std::string& commandLine) {
    std::wstring command = toWide(commandLine);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        return;
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

void Container::PropertyChanged(const std::string& name) {
    if (FaceHost* const host = link_->host())
        host->propertyChanged(name);
    link_->PropertyChanged.raise(name);
}

} // namespace pixmo::com
