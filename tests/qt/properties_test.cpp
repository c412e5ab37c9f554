#include "core/control/propertytable.h"
#include "faces/qt/widget/imageview.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace pixmo::qt {
namespace {

using testing::HasSubstr;

/// The type under which Qt knows a property, and the value that it starts with.
struct Expected {
    QByteArray type;
    QVariant value;
};

Expected expected(const PropertyRow& row) {
    if (qstrcmp(row.name, "DfPrintPaperSize") == 0)
        return {"pixmo::qt::ImageView::vlPaperSize", 0};
    if (qstrcmp(row.name, "PrintPageNumStyle") == 0)
        return {"pixmo::qt::ImageView::vlPageNumStyle", 0};
    return std::visit(
        [](const auto& value) -> Expected {
            using Type = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<Type, bool>)
                return {"bool", value};
            else if constexpr (std::is_same_v<Type, int16_t>)
                return {"short", value};
            else if constexpr (std::is_same_v<Type, int32_t>)
                return {"int", value};
            else if constexpr (std::is_same_v<Type, std::string>)
                return {"QString", QString::fromStdString(value)};
            else if constexpr (std::is_same_v<Type, Colour>)
                return {"uint", value.value};
            else
                return {"QFont", QWidget().font()};
        },
        row.defaultValue);
}

/// What this machine decides.
bool isKnownOnlyHere(const char* name) {
    return qstrcmp(name, "MachineName") == 0 || qstrcmp(name, "UserLogin") == 0;
}

TEST(Properties, AreThoseOfTheControl) {
    const ImageView view;
    const QMetaObject& meta = *view.metaObject();
    EXPECT_EQ(meta.propertyCount() - meta.propertyOffset(), static_cast<int>(propertyTable().size()));
    for (const PropertyRow& row : propertyTable()) {
        SCOPED_TRACE(row.name);
        const QMetaProperty property = meta.property(meta.indexOfProperty(row.name));
        ASSERT_TRUE(property.isValid());
        const Expected start = expected(row);
        EXPECT_EQ(QByteArray(property.typeName()), start.type);
        EXPECT_EQ(property.isWritable(), row.let != nullptr);
        EXPECT_TRUE(property.hasNotifySignal());
        if (isKnownOnlyHere(row.name))
            EXPECT_FALSE(property.read(&view).toString().isEmpty());
        else if (property.isEnumType())
            EXPECT_EQ(property.read(&view).toInt(), 0);
        else
            EXPECT_EQ(property.read(&view), start.value);
    }
}

TEST(Properties, TakeAndAnnounceNewValuesOnce) {
    ImageView view;
    const std::map<const char*, QVariant> values = {
        {"NoR", QVariant::fromValue<short>(2)},
        {"DfPrintAllPages", true},
        {"DfPrintPaperSize", QVariant::fromValue(ImageView::psA4)},
        {"PrintPageNumStyle", QVariant::fromValue(ImageView::pnSourceDocPageNums)},
        {"ThumbsAvailable", true},
        {"PrintCancelJob", true},
        {"PrintFee", QStringLiteral("3 \u20AC")},
        {"Delimiter", QStringLiteral("|")},
        {"PublicKey", QStringLiteral("Another key")},
        {"EncBytes", -1},
        {"FetchDelay", 10},
        {"BorderStyle", QVariant::fromValue<short>(1)},
        {"MinLogLevel", 1},
        {"BookmarkAvailable", true},
        {"BackColor", 0x00112233U},
        {"Enabled", false},
        {"Font", QFont(QStringLiteral("Serif"), 14)},
    };
    for (const auto& [name, value] : values) {
        SCOPED_TRACE(name);
        const QMetaProperty property = view.metaObject()->property(view.metaObject()->indexOfProperty(name));
        const QSignalSpy announced(&view, property.notifySignal());
        EXPECT_TRUE(view.setProperty(name, value));
        EXPECT_EQ(announced.size(), 1);
        view.setProperty(name, value);
        EXPECT_EQ(announced.size(), 1) << "the same value again";
        if (qstrcmp(name, "Font") != 0) {
            EXPECT_EQ(view.property(name), value);
        }
    }
    EXPECT_EQ(view.controlFont().family(), QStringLiteral("Serif"));
    EXPECT_FALSE(view.isEnabled());
    EXPECT_EQ(view.palette().color(QPalette::Window), QColor(0x33, 0x22, 0x11));
}

TEST(Properties, KeepTheOldValueWhenTheyRefuseTheNewOne) {
    ImageView view;
    const QSignalSpy announced(&view, &ImageView::publicKeyChanged);
    view.setPublicKey({});
    EXPECT_EQ(view.publicKey(), QStringLiteral("OrrelKeyset qFlow"));
    EXPECT_EQ(announced.size(), 0);
    int number = 0;
    int helpContext = 0;
    QString source;
    QString description;
    QString helpFile;
    view.GetLastError(number, source, description, helpFile, helpContext);
    EXPECT_EQ(number, 380);
    EXPECT_THAT(source.toStdString(), HasSubstr("VellaneInet.ImageView.PublicKey"));
    view.setBorderStyle(7);
    EXPECT_EQ(view.borderStyle(), 0);
}

TEST(Properties, FollowWhatTheHostDoesByQtsOwnMeans) {
    QWidget window;
    ImageView view(&window);
    const QSignalSpy announced(&view, &ImageView::controlEnabledChanged);
    window.setEnabled(false);
    EXPECT_TRUE(view.isControlEnabled()) << "its surroundings are disabled, not the control";
    window.setEnabled(true);
    view.setDisabled(true);
    EXPECT_FALSE(view.isControlEnabled());
    EXPECT_EQ(announced.size(), 1);
}

TEST(Properties, SystemColoursAreThePalettes) {
    QWidget window;
    QPalette palette;
    palette.setColor(QPalette::Highlight, QColor(1, 2, 3));
    window.setPalette(palette);
    ImageView view(&window);
    view.setBackColor(0x8000000D);
    EXPECT_EQ(view.palette().color(QPalette::Window), QColor(1, 2, 3));
    view.setBackColor(0x8000000F);
    EXPECT_EQ(view.palette().color(QPalette::Window), window.palette().color(QPalette::Window));
}

} // namespace
} // namespace pixmo::qt
