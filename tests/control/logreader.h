#pragma once

#include "faces/scripted/scriptedcontrol.h"

#include <fstream>
#include <string>

namespace pixmo {

/// The messages of a control's log without their time stamps, one a line, "[level] message".
class LogReader {
public:
    explicit LogReader(scripted::ScriptedControl& control)
        : folder_(control.scratch), path_(control.scratch->path() / "control.log") {
        control.view->setProperty("LogFileName", path_.string());
    }

    std::string messages() const {
        std::string text;
        std::ifstream file(path_);
        for (std::string line; std::getline(file, line);) {
            const size_t tab = line.rfind('\t');
            text += line.substr(tab + 1) + " " + line.substr(31, tab - 31) + "\n";
        }
        return text;
    }

private:
    std::shared_ptr<scripted::ScratchFolder> folder_;
    std::filesystem::path path_;
};

} // namespace pixmo
