#pragma once

#include "core/base/toolbar.h"
#include "tests/behaviour/facedriver.h"
#include "tests/com/behaviour/formwindow.h"
#include "tests/com/behaviour/uithread.h"
#include "tests/transfers/enginecontrol.h"

#include <functional>
#include <memory>
#include <optional>

namespace pixmo::com::test {

/// The control as hosts have it, for the behaviour suite. What hosts are not told, as whether it is idle, is
/// asked of its core.
class ComDriver : public behaviour::FaceDriver {
public:
    ComDriver(const UiThread& ui, const std::string& engine) : ui_(ui), address_(engine), engine_(engine) {}
    ~ComDriver() override;
    ComDriver(const ComDriver&) = delete;
    ComDriver& operator=(const ComDriver&) = delete;

    /// Of the thread of the windows, until it is told to quit.
    static void runMessageLoop();

    void create() override;
    void destroy() override;
    void forgetSettings() override;
    behaviour::Value get(const std::string& property) override;
    void set(const std::string& property, const behaviour::Value& value) override;
    behaviour::LastError lastError() override;
    void load(int32_t docID, int16_t page) override;
    void call(const std::string& method) override;
    void resize(int32_t width, int32_t height) override;
    void answerEvents(const behaviour::HostAnswers& answers) override;
    void command(const std::string& key) override;
    void setStallTimeout(int milliseconds) override;
    std::vector<std::string> takeEvents() override;

    void turnTo(behaviour::Window window) override;

    std::vector<behaviour::ShownButton> toolbar() override;
    std::string readOut() override { return statusField(0); }
    std::string status() override { return statusField(1); }
    std::string notice() override;
    std::string description() override;
    bool isIdle() override;
    bool isPageDisplayed() override;
    behaviour::ShownScroll scroll(bool horizontal) override;
    int32_t pointer() override;
    int pageFiles() override;
    std::optional<std::string> debugPane() override;
    behaviour::Picture picture() override;
    std::vector<behaviour::ShownThumb> thumbs() override;
    std::string focus() override;

    void hold(int modifiers) override { held_ = modifiers; }
    void press(int keyCode, int modifiers) override;
    void type(const std::string& text) override;
    void click(int32_t x, int32_t y, behaviour::Mouse button) override;
    void doubleClick(int32_t x, int32_t y) override;
    void drag(int32_t fromX, int32_t fromY, int32_t toX, int32_t toY, behaviour::Mouse button) override;
    void release(behaviour::Mouse button) override;
    void wheel(int32_t x, int32_t y, int notches, int modifiers) override;
    void clickButton(const std::string& key) override;
    void clickReadOut() override;
    void clickHostField(const std::string& name) override;

    void openToolbarMenu() override;
    void openPageMenu() override;
    std::optional<std::vector<behaviour::ShownEntry>> menu() override;
    void choose(const std::string& text) override;

    std::optional<behaviour::ShownBox> answer(const std::vector<std::string>& buttons) override;
    std::string dialog() override;
    std::string dialogTitle() override;
    std::pair<int32_t, int32_t> dialogPlace() override;
    std::string dialogText(const std::string& field) override;
    std::string selectedText(const std::string& field) override;
    behaviour::ShownField dialogField(const std::string& field) override;
    void clickDialogField(const std::string& field) override;
    std::pair<int32_t, int32_t> dialogSize() override;
    void resizeDialog(int32_t width, int32_t height) override;
    std::string clipboardText() override;
    void setDialogText(const std::string& field, const std::string& text) override;
    void pressDialogButton(const std::string& button) override;

    std::string engineAddress() override { return address_; }
    void setFaults(const std::string& faults) override { engine_.setFaults(faults); }
    bool hearsResets() override { return false; }
    int requests(const std::string& kind) override { return engine_.requests(kind); }

private:
    // On the thread of the windows.
    HWND part(const wchar_t* className) const;
    POINT onPage(int32_t x, int32_t y) const;
    /// Of the window that was turned to.
    HWND page() const { return part(thumbs_ ? L"Pixmo.Thumbnails" : L"Pixmo.Page"); }
    Toolbar buttons() const;
    HWND toolbarWindow() const { return part(L"ToolbarWindow32"); }
    /// The read-out, the status text, the zoom.
    std::vector<HWND> statusFields() const;
    behaviour::ShownButton lookAtButton(size_t index) const;

    /// Starts what may go on for long, or open a modal window.
    void start(const std::function<void()>& call);
    std::string statusField(size_t index);
    /// On the thread of the windows: where to click, as soon as there is something.
    using Find = std::function<std::optional<POINT>()>;
    bool pointAt(const Find& find);
    void clickAt(const Find& find, behaviour::Mouse button = behaviour::Mouse::Left);
    void moveOnPage(int32_t x, int32_t y);
    void waitForKeyboard() const;
    void waitForNewWindow() const;

    const UiThread& ui_;
    const std::string address_;
    const transfers::EngineControl engine_;
    std::shared_ptr<FormWindow> form_;
    /// Of a property: the host has it as the error of its own call, not as the control's last one.
    std::optional<behaviour::LastError> refusal_;
    HWND thumbs_ = nullptr; ///< while it was turned to
    int held_ = 0;          ///< keys that are down when a button is clicked
    int underWay_ = 0;      ///< calls that were started and have not returned
};

} // namespace pixmo::com::test
