#include "faces/scripted/scriptedports.h"

#include "core/base/error.h"
#include "core/base/files.h"
#include "core/thumbs/dlgthumbs.h"
#include "core/windows/dlgsavepage.h"
#include "faces/scripted/dialoguser.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <system_error>

namespace pixmo::scripted {

namespace fs = std::filesystem;

Answer MessageBox::ask(const std::string& text, Buttons buttons, Icon icon, const std::string& title) {
    questions.push_back({text, buttons, icon, title});
    if (whileAsked)
        std::exchange(whileAsked, nullptr)();
    if (answers.empty())
        return safestAnswer(buttons);
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

void EventLoop::pumpUntil(const std::function<bool()>& done) {
    while (!done()) {
        if (events_.empty()) {
            ranDry = true;
            return;
        }
        const auto event = std::move(events_.front());
        events_.pop_front();
        event();
    }
}

Timer::Timer(Timers& timers, std::function<void()> fired) : timers_(timers), fired_(std::move(fired)) {
    timers_.alive.push_back(this);
}

Timer::~Timer() {
    std::erase(timers_.alive, this);
}

std::unique_ptr<pixmo::Timer> Timers::createTimer(std::function<void()> fired) {
    return std::make_unique<Timer>(*this, std::move(fired));
}

void Timers::fireRunning() {
    const auto timers = alive;
    for (Timer* timer : timers)
        if (std::find(alive.begin(), alive.end(), timer) != alive.end() && timer->isRunning())
            timer->fire();
}

void AsyncReader::AsyncRead(const AsyncRequest& request) {
    requests.push_back(request);
    running_[request.PropertyName] = request;
    if (onStart)
        onStart(request);
}

void AsyncReader::CancelAsyncRead(const std::string& propertyName) {
    cancelled.push_back(propertyName);
    running_.erase(propertyName);
}

AsyncProperty AsyncReader::take(const std::string& tag) {
    const auto found = running_.find(tag);
    AsyncProperty record;
    record.PropertyName = tag;
    if (found == running_.end())
        return record;
    record.Target = found->second.Target;
    record.Type = found->second.Type;
    record.File = found->second.File;
    running_.erase(found);
    return record;
}

void AsyncReader::finish(const std::string& tag, const std::string& data) {
    AsyncProperty record = take(tag);
    record.StatusCode = static_cast<int32_t>(AsyncStatus::EndDownloadData);
    record.Status = "OK";
    record.BytesRead = record.BytesMax = static_cast<int32_t>(data.size());
    if (record.Type == AsyncType::File)
        writeFile(record.File, {reinterpret_cast<const uint8_t*>(data.data()), data.size()});
    else
        record.Bytes.assign(data.begin(), data.end());
    complete(record);
}

void AsyncReader::fail(const std::string& tag, const std::string& status) {
    AsyncProperty record = take(tag);
    record.Status = status;
    record.File.clear();
    complete(record);
}

void AsyncReader::complete(const AsyncProperty& record) {
    if (listener_)
        listener_->AsyncReadComplete(record);
}

std::string SettingsStore::GetSetting(const std::string& section, const std::string& key,
                                      const std::string& defaultValue) const {
    const auto found = values.find({section, key});
    return found == values.end() ? defaultValue : found->second;
}

void SettingsStore::SaveSetting(const std::string& section, const std::string& key,
                                const std::string& value) {
    values[{section, key}] = value;
}

ScratchFolder::ScratchFolder()
    : folder_(fs::temp_directory_path() / ("pixmo-scripted-" + std::to_string(std::random_device()()))) {
    fs::create_directories(folder_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

size_t ScratchFolder::fileCount() const {
    return static_cast<size_t>(std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
}

Raster PageDecoder::decode(std::span<const uint8_t> bytes) const {
    const std::string text(bytes.begin(),
                           bytes.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(bytes.size(), 40)));
    int width = 0;
    int height = 0;
    if (std::sscanf(text.c_str(), "page %dx%d", &width, &height) != 2)
        throw Error(error_number::InvalidPicture, "Invalid picture");
    ++decoded;
    Raster raster = makeRaster(PixelFormat::Bilevel, width, height);
    raster.xResolution = raster.yResolution = 300;
    return raster;
}

void Dialogs::showModal(Dialog& dialog) {
    shown.push_back(DialogUser(dialog).texts());
    if (const auto act = acts_.find(typeid(dialog)); act != acts_.end())
        act->second(dialog);
    if (dialog.isOpen())
        dialog.cancel();
}

std::optional<fs::path> Dialogs::askSavePath(dlgSavePage& dialog) {
    shown.push_back(std::string(dlgSavePage::Caption()) + ": " + dialog.suggestedFile());
    return savePath;
}

void PageWriter::write(const Raster& page, const fs::path& path) const {
    written.push_back(path.string() + " " + std::to_string(page.width) + "x" + std::to_string(page.height));
}

void ThumbnailHost::show(const std::shared_ptr<dlgThumbs>& window) {
    isShown = true;
    window->setShown(true);
    window->resized();
}

PropertyValue PropertyBag::ReadProperty(const std::string& key, const PropertyValue& defaultValue) const {
    readKeys.push_back(key);
    const auto found = values.find(key);
    return found == values.end() ? defaultValue : found->second;
}

void PropertyBag::WriteProperty(const std::string& key, const PropertyValue& value,
                                const PropertyValue& defaultValue) {
    writtenKeys.push_back(key);
    if (value == defaultValue)
        values.erase(key);
    else
        values[key] = value;
}

} // namespace pixmo::scripted
