#include "tests/qt/pdffile.h"

#include <QColorSpace>
#include <QProcess>
#include <gtest/gtest.h>

namespace pixmo::qt {

QByteArray PdfFile::run(const char* program, const QStringList& arguments) const {
    QProcess process;
    process.start(QString::fromLatin1(program), arguments);
    EXPECT_TRUE(process.waitForFinished(30'000)) << program;
    return process.readAllStandardOutput();
}

QImage PdfFile::rasterised(int number, const QStringList& size) const {
    const QString page = QString::number(number);
    QStringList arguments = {QStringLiteral("-gray"), QStringLiteral("-f"), page, QStringLiteral("-l"), page};
    arguments += size;
    arguments.append(path_);
    return QImage::fromData(run("pdftoppm", arguments), "PGM").convertToFormat(QImage::Format_Grayscale8);
}

QImage PdfFile::page(int number, int dotsPerInch) const {
    return rasterised(number, {QStringLiteral("-r"), QString::number(dotsPerInch)});
}

QImage PdfFile::pageOfHeight(int number, int height) const {
    return rasterised(number, {QStringLiteral("-scale-to-x"), QStringLiteral("-1"),
                               QStringLiteral("-scale-to-y"), QString::number(height)});
}

QImage PdfFile::pageToTheBit(int number, int dotsPerInch) const {
    const QString page = QString::number(number);
    const QByteArray picture =
        run("pdftocairo", {QStringLiteral("-png"), QStringLiteral("-gray"), QStringLiteral("-singlefile"),
                           QStringLiteral("-f"), page, QStringLiteral("-r"), QString::number(dotsPerInch),
                           path_, QStringLiteral("-")});
    QImage image = QImage::fromData(picture, "PNG").convertToFormat(QImage::Format_Grayscale8);
    image.setColorSpace({});
    return image;
}

int PdfFile::pageCount() const {
    const QString text = QString::fromUtf8(run("pdfinfo", {path_}));
    for (const QString& line : text.split(QLatin1Char('\n')))
        if (line.startsWith(QLatin1String("Pages:")))
            return line.mid(6).trimmed().toInt();
    return 0;
}

std::string PdfFile::text() const {
    return run("pdftotext", {QStringLiteral("-layout"), path_, QStringLiteral("-")}).toStdString();
}

QStringList PdfFile::pictures() const {
    return QString::fromUtf8(run("pdfimages", {QStringLiteral("-list"), path_}))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
        .mid(2);
}

QRect inkBox(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) < 128)
                box |= QRect(x, y, 1, 1);
    return box;
}

} // namespace pixmo::qt
