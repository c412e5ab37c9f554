#include "codecs/codecerror.h"

#include <utility>

namespace pixmo {

Error pictureError(std::string description) {
    return {error_number::InvalidPicture, std::move(description)};
}

} // namespace pixmo
