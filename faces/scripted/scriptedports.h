#pragma once

#include "core/control/controlports.h"
#include "core/platform/dialog.h"
#include "core/platform/propertybag.h"

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <utility>
#include <vector>

namespace pixmo::scripted {

/// Records what is asked and answers from a list; what no answer was prepared for is left unanswered in the
/// safest way (Cancel, Abort, Ok, No) and counted.
class MessageBox : public pixmo::MessageBox {
public:
    struct Question {
        std::string text;
        Buttons buttons;
        Icon icon;
        std::string title;
    };

    Answer ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) override;

    std::vector<Question> questions;
    std::deque<Answer> answers;
    /// Runs while a question stands.
    std::function<void()> whileAsked;
};

/// Runs prepared events one by one. Waiting for what no event brings about is a fault of the test.
class EventLoop : public pixmo::EventLoop {
public:
    void pumpUntil(const std::function<bool()>& done) override;

    /// Runs what was posted to happen while the control works.
    void handlePending() override {
        if (onPending)
            onPending();
    }

    std::function<void()> onPending;
    void post(std::function<void()> event) { events_.push_back(std::move(event)); }
    bool ranDry = false;

private:
    std::deque<std::function<void()>> events_;
};

class Timers;

class Timer : public pixmo::Timer {
public:
    Timer(Timers& timers, std::function<void()> fired);
    ~Timer() override;
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    int32_t interval() const override { return interval_; }
    void setInterval(int32_t milliseconds) override { interval_ = milliseconds; }
    void start() override { ++starts, running_ = true; }
    void stop() override { running_ = false; }
    bool isRunning() const override { return running_; }
    void fire() {
        const auto callback = fired_;
        callback();
    }

    int starts = 0;

private:
    Timers& timers_;
    std::function<void()> fired_;
    int32_t interval_ = 0;
    bool running_ = false;
};

class Timers : public TimerFactory {
public:
    std::unique_ptr<pixmo::Timer> createTimer(std::function<void()> fired) override;
    /// Fires every timer that runs now.
    void fireRunning();

    std::vector<Timer*> alive;
};

/// Records requests; the test completes them.
class AsyncReader : public pixmo::AsyncReader {
public:
    void setListener(AsyncReadListener* listener) override { listener_ = listener; }
    void AsyncRead(const AsyncRequest& request) override;
    void CancelAsyncRead(const std::string& propertyName) override;

    bool isRunning(const std::string& tag) const { return running_.contains(tag); }
    /// Completes with data: into the request's file or the record's bytes.
    void finish(const std::string& tag, const std::string& data);
    void fail(const std::string& tag, const std::string& status);
    void complete(const AsyncProperty& record);

    std::vector<AsyncRequest> requests; ///< all that were started
    std::vector<std::string> cancelled;
    std::function<void(const AsyncRequest&)> onStart;

private:
    AsyncProperty take(const std::string& tag);

    std::map<std::string, AsyncRequest> running_;
    AsyncReadListener* listener_ = nullptr;
};

class SettingsStore : public pixmo::SettingsStore {
public:
    std::string GetSetting(const std::string& section, const std::string& key,
                           const std::string& defaultValue) const override;
    void SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;

    std::map<std::pair<std::string, std::string>, std::string> values;
};

class Identity : public pixmo::Identity {
public:
    std::string userName() const override { return user; }
    std::string computerName() const override { return machine; }

    std::string user = "jdoe";
    std::string machine = "WS-0042";
};

class Clock : public pixmo::Clock {
public:
    std::string generalDate() const override { return now; }

    std::string now = "5/17/2026 9:30:00 AM";
};

/// A folder of its own under the system's temporary one.
class ScratchFolder : public pixmo::ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder() override;
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::filesystem::path path() override { return folder_; }
    size_t fileCount() const;

private:
    std::filesystem::path folder_;
};

class Container : public pixmo::Container {
public:
    bool userMode() const override { return inUserMode; }
    Colour ambientBackColor() const override { return backColor; }
    Font ambientFont() const override { return {}; }
    void startProgram(const std::string& commandLine) override { programs.push_back(commandLine); }
    bool mayWriteFiles() const override { return filesAllowed; }
    void PropertyChanged(const std::string& name) override { changed.push_back(name); }

    bool inUserMode = true;
    bool filesAllowed = true;
    Colour backColor{0x00FFFFFF};
    std::vector<std::string> programs;
    std::vector<std::string> changed;
};

class ViewSurface : public pixmo::ViewSurface {
public:
    void repaint() override { ++repaints; }
    int32_t width() const override { return viewWidth; }
    int32_t height() const override { return viewHeight; }
    double devicePixelRatio() const override { return ratio; }
    void setPointer(int32_t pointer) override { shownPointer = pointer; }

    int repaints = 0;
    int32_t viewWidth = 800;
    int32_t viewHeight = 1000;
    double ratio = 1;
    int32_t shownPointer = 0;
};

/// Takes text pages: "page WIDTHxHEIGHT" followed by anything; other bytes are no picture.
class PageDecoder : public pixmo::PageDecoder {
public:
    Raster decode(std::span<const uint8_t> bytes) const override;

    mutable int decoded = 0;
};

/// Records what is shown and cancels it when the user of the test does nothing else.
class Dialogs : public pixmo::Dialogs {
public:
    void showModal(Dialog& dialog) override;
    std::optional<std::filesystem::path> askSavePath(dlgSavePage& dialog) override;

    /// What the user does in each window of that kind.
    template <typename Window>
    void when(std::function<void(Window&)> act) {
        acts_[typeid(Window)] = [act](Dialog& dialog) { act(static_cast<Window&>(dialog)); };
    }

    std::vector<std::string> shown; ///< title and texts of each
    std::optional<std::filesystem::path> savePath;

private:
    std::map<std::type_index, std::function<void(Dialog&)>> acts_;
};

class Clipboard : public pixmo::Clipboard {
public:
    void setPicture(const Raster& picture) override { pictures.push_back(picture); }
    void setText(const std::string& text) override { texts.push_back(text); }

    std::vector<Raster> pictures;
    std::vector<std::string> texts;
};

class PageWriter : public pixmo::PageWriter {
public:
    void write(const Raster& page, const std::filesystem::path& path) const override;

    mutable std::vector<std::string> written; ///< path and size
};

class ThumbnailHost : public pixmo::ThumbnailHost {
public:
    std::shared_ptr<pixmo::ViewSurface> surface() override { return area; }
    void show(const std::shared_ptr<dlgThumbs>& window) override;
    void close() override { isShown = false; }

    std::shared_ptr<ViewSurface> area = std::make_shared<ViewSurface>();
    bool isShown = false;
};

class PropertyBag : public pixmo::PropertyBag {
public:
    PropertyValue ReadProperty(const std::string& key, const PropertyValue& defaultValue) const override;
    void WriteProperty(const std::string& key, const PropertyValue& value,
                       const PropertyValue& defaultValue) override;

    std::map<std::string, PropertyValue> values;
    mutable std::vector<std::string> readKeys;
    std::vector<std::string> writtenKeys;
};

} // namespace pixmo::scripted
