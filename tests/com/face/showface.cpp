#include "faces/com/base/widetext.h"
#include "tests/com/face/facehostwindow.h"

#include <cstdio>
#include <ole2.h>
#include <shellapi.h>
#include <string>
#include <vector>

// Shows the control in a plain window, for a person or a screenshot:
//   showface ADDRESS DOCUMENT PAGE WIDTH HEIGHT [COMMAND...]
// Loads the page, gives the commands, and stays until the window is closed. "NAME=VALUE" sets a property
// first: True, False or a text.
namespace {

using namespace pixmo;
using namespace pixmo::com;

std::vector<std::string> arguments() {
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> texts;
    for (int i = 1; i < count; ++i)
        texts.push_back(toUtf8(words[i]));
    LocalFree(words);
    return texts;
}

void setProperty(ImageView& control, const std::string& assignment) {
    const size_t sign = assignment.find('=');
    const std::string value = assignment.substr(sign + 1);
    if (!control.trySetProperty(assignment.substr(0, sign), value))
        std::fprintf(stderr, "refused: %s\n", assignment.c_str());
}

int show(const std::vector<std::string>& words) {
    const SIZE inside = {std::stol(words[3]), std::stol(words[4])};
    const auto host = FaceHostWindow::create(inside, L"Host");
    const auto control = host->face().control();
    std::vector<std::string> commands;
    control->setProperty("EngineAddress", words[0]);
    if (words.back() == "mirrored") {
        host->isMirrored = true;
        host->face().destroyWindow();
        host->face().createWindow(host->handle(), {0, 0, inside.cx, inside.cy});
        host->face().show(true);
    }
    for (size_t i = 5; i < words.size(); ++i) {
        if (words[i].find('=') == std::string::npos)
            commands.push_back(words[i]);
        else
            setProperty(*control, words[i]);
    }
    if (words[1] != "0")
        control->LoadDocumentByDocID(std::stol(words[1]), static_cast<int16_t>(std::stol(words[2])));
    pumpUntil(*host, [&] { return control->isIdle(); });
    for (const std::string& command : commands)
        control->runCommand(command);
    std::puts("shown");
    std::fflush(stdout);
    bool closed = false;
    while (!closed)
        closed = !pumpUntil(*host, [&] { return false; }) && !IsWindow(host->handle());
    return 0;
}

} // namespace

int main() {
    const std::vector<std::string> words = arguments();
    if (words.size() < 5) {
        std::fputs("usage: showface ADDRESS DOCUMENT PAGE WIDTH HEIGHT [COMMAND | NAME=VALUE]...\n", stderr);
        return 2;
    }
    OleInitialize(nullptr);
    const int result = show(words);
    OleUninitialize();
    return result;
}
