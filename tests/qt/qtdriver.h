#pragma once

#include "tests/behaviour/facedriver.h"
#include "tests/qt/engineprocess.h"
#include "tests/qt/hostwindow.h"
#include "tests/qt/userinput.h"

class QAbstractScrollArea;
class QToolBar;
class QScrollBar;

namespace pixmo::qt {

class ThumbsWindow;

/// The Qt face for the behaviour suite.
class QtDriver : public behaviour::FaceDriver {
public:
    explicit QtDriver(const EngineProcess& engine) : engine_(engine) {}
    ~QtDriver() override;
    QtDriver(const QtDriver&) = delete;
    QtDriver& operator=(const QtDriver&) = delete;

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
    std::string readOut() override;
    std::string status() override;
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

    void hold(int modifiers) override;
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

    std::string engineAddress() override;
    void setFaults(const std::string& faults) override;
    bool hearsResets() override { return true; }
    int requests(const std::string& kind) override;

private:
    ImageView& view() const { return host_->view(); }
    /// Of the window that was turned to.
    QAbstractScrollArea& page() const;
    QToolBar& bar() const;
    /// On the screen; of a widget its middle. Fails the test when there is nothing.
    static std::optional<QPoint> placeOf(const QWidget* widget);
    QPoint onPage(int32_t x, int32_t y) const;
    /// Starts what may go on for long, or open a modal window.
    void start(const std::function<void()>& call);
    /// On the thread of the windows: where to click, as soon as there is something.
    using Find = std::function<std::optional<QPoint>()>;
    bool pointAt(const Find& find);
    void clickAt(const Find& find, behaviour::Mouse button = behaviour::Mouse::Left);
    void moveOnPage(int32_t x, int32_t y);

    const EngineProcess& engine_;
    std::unique_ptr<HostWindow> host_;
    UserInput input_;
    ThumbsWindow* thumbs_ = nullptr; ///< while it was turned to
    int held_ = 0;                   ///< keys that stay pressed
    int underWay_ = 0;               ///< calls that were started and have not returned
};

} // namespace pixmo::qt
