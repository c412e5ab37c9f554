#include "faces/qt/widget/imageview.h"
#include "faces/qt/widget/imageviewprivate.h"

#include <type_traits>

// How the values of the control's properties are written in Qt.
namespace pixmo::qt {

template <typename Type>
Type ImageView::get(const char* property) const {
    if constexpr (std::is_same_v<Type, QFont>)
        return d_->font();
    else if constexpr (std::is_same_v<Type, QString>)
        return d_->text(property);
    else if constexpr (std::is_same_v<Type, uint>)
        return d_->get<Colour>(property).value;
    else if constexpr (std::is_enum_v<Type>)
        return static_cast<Type>(d_->get<std::underlying_type_t<Type>>(property));
    else
        return d_->get<Type>(property);
}

template <typename Type>
void ImageView::let(const char* property, const Type& value) {
    if constexpr (std::is_same_v<Type, QFont>)
        d_->let(property, d_->toFont(value));
    else if constexpr (std::is_same_v<Type, QString>)
        d_->let(property, value.toStdString());
    else if constexpr (std::is_same_v<Type, uint>)
        d_->let(property, Colour{value});
    else if constexpr (std::is_enum_v<Type>)
        d_->let(property, static_cast<std::underlying_type_t<Type>>(value));
    else
        d_->let(property, value);
}

template QString ImageView::get(const char*) const;
template short ImageView::get(const char*) const;
template int ImageView::get(const char*) const;
template bool ImageView::get(const char*) const;
template uint ImageView::get(const char*) const;
template QFont ImageView::get(const char*) const;
template ImageView::vlPaperSize ImageView::get(const char*) const;
template ImageView::vlPageNumStyle ImageView::get(const char*) const;

template void ImageView::let(const char*, const QString&);
template void ImageView::let(const char*, const short&);
template void ImageView::let(const char*, const int&);
template void ImageView::let(const char*, const bool&);
template void ImageView::let(const char*, const uint&);
template void ImageView::let(const char*, const QFont&);
template void ImageView::let(const char*, const ImageView::vlPaperSize&);
template void ImageView::let(const char*, const ImageView::vlPageNumStyle&);

} // namespace pixmo::qt
