#pragma once

#include "core/drawing/palette.h"
#include "core/drawing/pathpainter.h"
#include "core/drawing/textrun.h"
#include "core/thumbs/dlgthumbs.h"

#include <vector>

namespace pixmo {

/// Paints the thumbnails that are to be seen on the window's picture area.
class ThumbPainter {
public:
    struct Look {
        Palette palette;
        double ratio = 1;     ///< device pixels per pixel of the window
        bool focused = false; ///< whether the window has the keyboard
    };

    ThumbPainter(dlgThumbs& thumbs, const PixelSurface& surface, const Look& look, TextMeasure measure);

    /// Fills the whole surface; page numbers and the notice are left to the face.
    std::vector<TextRun> paint();

private:
    void paintItem(int32_t item);
    void paintSelection(const Rectangle& cell);
    RealRectangle pictureRoom(const Rectangle& cell) const;
    RealRectangle paintPicture(const ThumbPicture& picture, const RealRectangle& room);
    void copyPicture(const ThumbPicture& picture, const RealRectangle& page);
    RealRectangle paintOutline(const RealRectangle& room);
    void paintBorder(const RealRectangle& page);
    void paintCurrent(const RealRectangle& page);
    void paintWaiting(const RealRectangle& page);
    void paintBroken(const RealRectangle& page);
    void paintTear(const RealRectangle& page);
    void paintNumber(int32_t item, const Rectangle& cell);
    void paintFocus(const Rectangle& cell);
    void paintBand();
    RealRectangle noticeRoom() const;
    uint32_t towardsText(double share) const;
    RealRectangle centred(double width, double height, const RealRectangle& room) const;
    Rectangle onDevice(const RealRectangle& rectangle) const;

    dlgThumbs& thumbs_;
    PixelSurface surface_;
    Look look_;
    TextMeasure measure_;
    PathPainter painter_;
    std::vector<TextRun> texts_;
};

} // namespace pixmo
