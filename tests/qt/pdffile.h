#pragma once

#include <QImage>
#include <QString>
#include <string>

namespace pixmo::qt {

/// A printed file as others see it: by poppler's programs.
class PdfFile {
public:
    explicit PdfFile(QString path) : path_(std::move(path)) {}

    /// A page (1 is the first) in gray at so many dots per inch; null when there is none.
    QImage page(int number, int dotsPerInch = 100) const;
    /// The same so many pixels high.
    QImage pageOfHeight(int number, int height) const;
    /// By an engine that leaves a picture's pixels as they are where each is one pixel of the page.
    QImage pageToTheBit(int number, int dotsPerInch) const;
    int pageCount() const;
    /// The text of all pages, one line after the other, a form feed behind each page.
    std::string text() const;
    /// What `pdfimages -list` says of the pictures.
    QStringList pictures() const;

private:
    QByteArray run(const char* program, const QStringList& arguments) const;
    QImage rasterised(int number, const QStringList& size) const;

    QString path_;
};

/// The smallest rectangle around everything darker than mid-gray.
QRect inkBox(const QImage& image);

} // namespace pixmo::qt
