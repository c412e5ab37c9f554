#include "core/drawing/path.h"

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>

namespace pixmo {

namespace {

constexpr double DegreesAPiece = 6;

/// The words of a drawing, one after the other.
class Words {
public:
    explicit Words(std::string_view text) : text_(text) {}

    std::string next() {
        const size_t from = text_.find_first_not_of(' ');
        if (from == std::string_view::npos)
            return {};
        text_.remove_prefix(from);
        std::string word(text_.substr(0, text_.find(' ')));
        text_.remove_prefix(word.size());
        return word;
    }
    double number() { return std::strtod(next().c_str(), nullptr); }
    RealPoint point() {
        const double x = number();
        return {x, number()};
    }

private:
    std::string_view text_;
};

} // namespace

Path::Path(std::string_view text) {
    Words words(text);
    for (std::string word = words.next(); !word.empty(); word = words.next()) {
        if (word == "M") {
            moveTo(words.point());
        } else if (word == "L") {
            lineTo(words.point());
        } else if (word == "A") {
            const RealPoint centre = words.point();
            const double radius = words.number();
            const double start = words.number();
            arc(centre, radius, start, words.number());
        } else if (word == "Z") {
            close();
        } else {
            return;
        }
    }
}

void Path::lineTo(RealPoint place) {
    if (lines_.empty())
        lines_.emplace_back();
    lines_.back().points.push_back(place);
}

void Path::arc(RealPoint centre, double radius, double startDegrees, double spanDegrees) {
    lines_.emplace_back();
    addArcPoints(centre, radius, startDegrees, spanDegrees);
}

void Path::addArcPoints(RealPoint centre, double radius, double startDegrees, double spanDegrees) {
    const int pieces = static_cast<int>(std::ceil(std::abs(spanDegrees) / DegreesAPiece));
    for (int piece = 0; piece <= pieces; ++piece) {
        const double angle =
            (startDegrees + spanDegrees * piece / std::max(pieces, 1)) * std::numbers::pi / 180;
        lineTo({centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)});
    }
}

void Path::close() {
    if (!lines_.empty())
        lines_.back().closed = true;
}

void Path::addRoundedRectangle(const RealRectangle& r, double radius) {
    const double right = r.left + r.width - radius;
    const double bottom = r.top + r.height - radius;
    const double left = r.left + radius;
    const double top = r.top + radius;
    lines_.emplace_back();
    addArcPoints({right, top}, radius, 90, -90);
    addArcPoints({right, bottom}, radius, 0, -90);
    addArcPoints({left, bottom}, radius, 270, -90);
    addArcPoints({left, top}, radius, 180, -90);
    close();
}

} // namespace pixmo
