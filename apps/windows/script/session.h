#pragma once

#include "apps/windows/form/placedcontrol.h"
#include "apps/windows/script/hostobject.h"
#include "apps/windows/script/scriptengine.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace pixmo::script {

/// Runs one script, with what it may call:
///
///     Host.Echo text               writes a line
///     Host.Check condition, text   a condition that does not hold fails the run
///     Host.Connect object, prefix  the object's events call procedures named prefix + event
///     Host.Show object             places a control in a window of its own
///     Host.Sleep milliseconds      lets events come
///     Host.Argument(number)        of the command line, from 0; "" when there is none
///     Host.Quit status             ends the script with this status
class Session {
public:
    explicit Session(std::vector<std::wstring> arguments) : arguments_(std::move(arguments)) {}
    ~Session();

    /// The program's status: 0, 1 when a check failed, 2 for a script error, or what the script quits with.
    int run(const std::wstring& file);

private:
    Procedures procedures();
    void show(const com::ComPtr<IUnknown>& control);
    void sleep(int milliseconds);
    int statusOf(const std::wstring& file) const;

    std::vector<std::wstring> arguments_;
    std::unique_ptr<ScriptEngine> engine_;
    std::vector<std::unique_ptr<form::PlacedControl>> placed_;
    std::vector<HWND> windows_;
    std::optional<int> quit_;
    bool checkFailed_ = false;
};

} // namespace pixmo::script
