#include "faces/scripted/scriptedcontrol.h"

#include "core/cipher/clsrc4.h"
#include "core/diag/applicationlog.h"

#include <algorithm>

namespace pixmo::scripted {

ScriptedControl::ScriptedControl() {
    // The log is the process's: every test finds it as the first one does.
    ApplicationLog::instance().StartLogging({}, log_mode::Off);
    view = ImageView::create(ports());
    view->UserControl_InitProperties();
    view->setProperty("EngineAddress", std::string("http://engine.test/page"));
}

ScriptedControl::~ScriptedControl() {
    destroy();
}

void ScriptedControl::destroy() {
    if (view)
        view->UserControl_Terminate();
    view.reset();
}

ControlPorts ScriptedControl::ports() const {
    return {messageBox, eventLoop,   timers,  reader,  settings,  identity,   clock,         scratch,
            container,  viewSurface, decoder, dialogs, clipboard, pageWriter, thumbnailHost, printers};
}

std::string ScriptedControl::encipher(const std::string& plain) const {
    return clsRC4().EncryptString(plain, std::get<std::string>(view->property("PublicKey")), true);
}

std::string ScriptedControl::tag(const std::string& kind, int32_t docID, int32_t page) const {
    const auto delimiter = std::get<std::string>(view->property("Delimiter"));
    return kind + delimiter + std::to_string(docID) + (page > 0 ? delimiter + std::to_string(page) : "");
}

void ScriptedControl::answerContactWith(const std::string& plain) {
    eventLoop->post([this, plain] { reader->finish("IC", encipher(plain)); });
}

std::string ScriptedControl::pageFile(const std::string& size, int32_t encBytes) {
    std::string bytes = "page " + size + "\n";
    bytes.resize(4096, '.');
    const auto end = encBytes < 0 ? bytes.end() : bytes.begin() + std::min(encBytes, 4096);
    std::reverse(bytes.begin(), end);
    return bytes;
}

void ScriptedControl::open(int32_t docID, int16_t page, int16_t pageCount) {
    answerContactWith("IC\u00B7OK");
    view->LoadDocumentByDocID(docID, page);
    reader->finish(tag("PC", docID), encipher("PC\u00B7OK\u00B7" + std::to_string(pageCount)));
}

} // namespace pixmo::scripted
