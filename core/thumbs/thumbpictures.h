#pragma once

#include "core/raster/raster.h"
#include "core/raster/rectangle.h"

#include <cstdint>
#include <list>
#include <string>
#include <unordered_map>
#include <vector>

namespace pixmo {

enum class ThumbState : uint8_t { Empty, Loading, Shown, Failed };

/// A reduced page: 0xFFRRGGBB, rows top to bottom without gaps.
struct ThumbPicture {
    Size size; ///< device pixels
    std::vector<uint32_t> pixels;
};

/// The reduced pictures and the states of all items. Holds no more than its budget of pixels: what was not
/// looked at for longest goes first and is Empty again. What is in the window now always stays.
class ThumbPictures {
public:
    static constexpr size_t PixelBudget = size_t{16} * 1024 * 1024;

    ThumbState state(int32_t item) const;
    /// Why the item failed.
    std::string reason(int32_t item) const;
    /// Nothing to see, or a picture of a former size.
    bool isWanted(int32_t item) const;
    /// nullptr when there is nothing to see; of a former size while the new one is loading. Counts as looking
    /// at it.
    const ThumbPicture* picture(int32_t item);

    void setLoading(int32_t item);
    void setFailed(int32_t item, std::string reason);
    /// `firstKept` to `endKept` are the items in the window.
    void setPicture(int32_t item, ThumbPicture picture, int32_t firstKept = 0, int32_t endKept = 0);
    void setEmpty(int32_t item);
    void clear();
    /// The pictures have another size now; they stay until the new ones come. What failed stays failed.
    void outdatePictures();
    size_t pixelCount() const { return pixels_; }

private:
    struct Entry {
        ThumbState state = ThumbState::Empty;
        std::string reason;
        bool outdated = false;
        ThumbPicture picture;
        std::list<int32_t>::iterator use; ///< valid while there are pixels
    };

    void release(Entry& entry);
    void keepBudget(int32_t newest, int32_t firstKept, int32_t endKept);

    std::unordered_map<int32_t, Entry> entries_;
    std::list<int32_t> used_; ///< items that hold a picture, the one looked at last in front
    size_t pixels_ = 0;
};

} // namespace pixmo
