#include "core/windows/dlgabout.h"

#include "core/base/product.h"
#include "core/base/text.h"
#include "core/diag/procedure.h"

#include <array>
#include <charconv>
#include <cmath>

namespace pixmo {

namespace {

/// Inches rounded to one decimal, in the pattern "0.00".
std::string inches(int32_t pixels, double resolution) {
    std::array<char, 64> text{};
    const double rounded = std::nearbyint(pixels / resolution * 10) / 10;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), rounded, std::chars_format::fixed, 2).ptr;
    return std::string(text.data(), end) + "\"";
}

std::string dotsPerInch(double resolution) {
    return std::to_string(std::lround(resolution));
}

} // namespace

dlgAbout::dlgAbout(MessageBox* messageBox, Clipboard& clipboard)
    : ownErrorObject_(std::make_unique<cErrObject>(messageBox)), errorObject_(ownErrorObject_.get()),
      messageBox_(messageBox), clipboard_(clipboard), caption_(std::string("About ") + product::Title) {
    version_ = "Version " + std::to_string(product::Major) + "." + std::to_string(product::Minor) + "." +
               std::to_string(product::Revision);
    description_ = "This internet enabled image viewer is part of the Vellane document imaging system.";
    setFocus("cmdOK");
}

DialogDescription dlgAbout::describe() {
    using enum DialogPart::Kind;
    DialogPart buttons{.kind = Buttons,
                       .parts = {{.kind = Button,
                                  .name = "cmdOK",
                                  .text = "OK",
                                  .isDefault = true,
                                  .meaning = DialogPart::Meaning::Ok,
                                  .clicked = [this] { cmdOK_Click(); }}}};
    if (isImageInformation())
        buttons.parts.push_back({.kind = Button, .text = "&Copy", .clicked = [this] { cmdCopy_Click(); }});
    const DialogPart icon{.kind = Icon, .spoken = "Program icon"};
    return {.name = "dlgAbout",
            .title = caption_,
            .content = {.kind = Column, .parts = {{.kind = Row, .parts = {icon, texts()}}, buttons}}};
}

DialogPart dlgAbout::texts() const {
    using enum DialogPart::Kind;
    constexpr int32_t Width = 43; // characters
    if (isImageInformation())
        return {.kind = Lines,
                .name = "lblInformation",
                .text = information_,
                .spoken = caption_,
                .width = Width,
                .isCopied = true};
    return {.kind = Column,
            .parts = {{.kind = Heading, .text = product::Title, .isCopied = true},
                      {.kind = Label, .name = "lblVersion", .text = version_, .isCopied = true},
                      {.kind = Lines, .name = "lblDescription", .text = description_, .width = Width}}};
}

void dlgAbout::ShowImageInfo(const Raster* picture, const std::string& docID) {
    const auto scope = std::make_shared<ProcedureScope>();
    scope->sourcePrefix = "dlgAbout.";
    scope->errorObject = errorObject_;
    scope->messageBox = messageBox_;
    Procedure(scope, "ShowImageInfo", Buttons::RetryCancel)
        .step([&] { caption_ = "Image Information"; })
        .step([&] {
            information_.clear();
            if (picture && !picture->empty())
                describe(*picture, docID);
            else
                information_ = "No image displayed.";
        });
}

void dlgAbout::describe(const Raster& picture, const std::string& docID) {
    const auto line = [this](const std::string& text) { information_ += text + std::string(LineBreak); };
    const std::string depth = std::to_string(picture.bitsPerPixel);
    line("Image Size: " + inches(picture.width, picture.xResolution) + " x " +
         inches(picture.height, picture.yResolution));
    line("Image pixels: " + std::to_string(picture.width) + " x " + std::to_string(picture.height));
    line("Resolution: " + dotsPerInch(picture.xResolution) + " x " + dotsPerInch(picture.yResolution) +
         " dpi");
    line("Color Depth: " + depth + (picture.bitsPerPixel < 2 ? " bit per pixel" : " bits per pixel"));
    if (docID != "0" && !docID.empty())
        line("DocID: " + docID);
    information_.resize(information_.size() - LineBreak.size());
}

} // namespace pixmo
