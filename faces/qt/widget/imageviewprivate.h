#pragma once

#include "core/control/imageview.h"
#include "faces/qt/ports/asyncreader.h"
#include "faces/qt/ports/facelink.h"
#include "faces/qt/ports/messagebox.h"
#include "faces/qt/ports/texts.h"
#include "faces/qt/printing/printers.h"
#include "faces/qt/widget/commandactions.h"
#include "faces/qt/widget/imageview.h"
#include "faces/qt/windows/commandtoolbar.h"
#include "faces/qt/windows/debugpane.h"
#include "faces/qt/windows/pageview.h"
#include "faces/qt/windows/statusrow.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <string_view>
#include <vector>

namespace pixmo::qt {

/// Joins the widget to its control: forwards what the host asks, mirrors what the control holds.
class ImageViewPrivate {
public:
    explicit ImageViewPrivate(ImageView& widget);
    /// Ends the control; nothing that it does reaches the widget any more.
    ~ImageViewPrivate();
    ImageViewPrivate(const ImageViewPrivate&) = delete;
    ImageViewPrivate& operator=(const ImageViewPrivate&) = delete;

    static ImageViewPrivate& of(ImageView& widget) { return *widget.d_; }

    /// Every call holds the control: it may bring about the end of the widget.
    std::shared_ptr<pixmo::ImageView> control() const { return control_; }
    AsyncReader& reader() const { return *reader_; }
    MessageBox& messageBox() const { return *messageBox_; }
    Printers& printers() const { return *printers_; }
    QAction* action(const QString& key) const { return actions_.find(key); }
    void setForbidden(std::string_view key, bool forbidden);

    template <typename Type>
    Type get(std::string_view name) const {
        return std::get<Type>(control_->property(name));
    }
    QString text(std::string_view name) const { return toQt(get<std::string>(name)); }
    QFont font() const;
    /// A font that asks for nothing is the font of the surroundings.
    static Font toFont(const QFont& font);
    void let(std::string_view name, const PropertyValue& value);

    /// Says of every property that has another value than before that it has.
    void announceChanges();
    void relayout(bool resized);
    void paintBorder(QPainter& painter) const;
    /// The host has enabled or disabled the widget by Qt's own means.
    void followEnabled();
    void applyColours();
    /// The height of toolbar and status line together, in device-independent pixels.
    int barsHeight() const;
    int toolbarHeight() const;
    void load(int32_t docID, int32_t page);
    int printToFile(const QString& file, const QList<short>& pages, bool fullSize);

private:
    ControlPorts ports();
    void connectEvents();
    void connectPrintEvents();
    void watchProperties();
    void showInterface();
    /// Hands a command on; a click turns a checkable action by itself, so that all is shown anew.
    void give(const std::function<void(pixmo::ImageView&)>& command);
    void applyAppearance(std::string_view name);
    void applyFont();
    int borderWidth() const { return get<int16_t>("BorderStyle") == 0 ? 0 : 1; }

    ImageView& widget_;
    SharedFaceLink link_;
    CommandToolbar* toolbar_;
    PageView* page_;
    DebugPane* debug_;
    StatusRow status_;
    CommandActions actions_;
    std::shared_ptr<MessageBox> messageBox_;
    std::shared_ptr<AsyncReader> reader_;
    std::shared_ptr<Printers> printers_;
    std::shared_ptr<pixmo::ImageView> control_;
    std::vector<PropertyValue> announced_; ///< by row of the table of properties
    std::vector<QMetaMethod> notifySignals_;
    QRect viewPlace_;
};

} // namespace pixmo::qt
