#pragma once

#include "codecs/faxpictures.h"

#include <cstdint>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Copies a PDF file of one print engine, whose table of offsets (ISO 32000-1, 7.5.4) it knows how to read,
/// and puts, for its 1-bit pictures, the same ones as ITU-T T.6, in which they are half as large and smaller.
/// One object at a time is in memory.
class PdfCompactor {
public:
    /// Takes what comes next of the copy; false when that fails.
    using Write = std::function<bool(std::string_view bytes)>;

    /// Whether there is a copy. A file of any other form than the engine's is copied as it is.
    static bool copy(std::istream& from, const Write& to, FaxPictures& pictures);

private:
    PdfCompactor(std::istream& source, const Write& target, FaxPictures& pictures)
        : source_(source), target_(target), pictures_(pictures) {}

    bool run();
    bool copyAsItIs();
    bool readTable();
    bool readEntries(std::string_view entries);
    std::string read(int64_t offset, int64_t size) const;
    std::string compacted(const std::string& object);
    bool write(std::string_view bytes);
    bool writeObjects();
    bool writeTable();

    std::istream& source_;
    const Write& target_;
    FaxPictures& pictures_;
    size_t next_ = 0;              ///< of the pictures
    int64_t written_ = 0;          ///< bytes of the copy
    std::vector<int64_t> offsets_; ///< by object number, 0 for none
    std::vector<int64_t> ends_;
    std::vector<int64_t> newOffsets_;
    int64_t table_ = 0;   ///< where the table of offsets begins
    std::string trailer_; ///< what stands behind it, without its own offset
};

} // namespace pixmo
