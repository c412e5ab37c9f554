#include "faces/scripted/scriptedcontrol.h"

#include "core/control/layout.h"
#include "core/control/propertypage.h"

#include <map>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace pixmo {
namespace {

using scripted::ScriptedControl;
using testing::ElementsAre;

/// In the order that containers know; what a later version adds comes behind.
std::vector<std::string> persistedKeys() {
    return {"BackColor",        "ForeColor",       "Enabled",          "Font",
            "EngineAddress",    "LogFileName",     "FetchDelay",       "ResizeDelay",
            "BorderStyle",      "PrintCaption",    "PrintCoverSheet",  "PrintUserName",
            "PrintItemDesc",    "PrintFee",        "Delimiter",        "PublicKey",
            "EncBytes",         "PrintPageNums",   "ImageDesc",        "PrintCapFontSize",
            "ThumbsAvailable",  "DfPrintAllPages", "DfPrintPaperSize", "PrintPageNumStyle",
            "BookmarkAvailable"};
}

/// What the interface that hosts see says of each property.
struct Promised {
    std::string name;
    size_t type;
    std::string access;
};

std::vector<Promised> interfaceRows() {
    return {
#define PIXMO_PROPERTY(number, name, type, access, help)                                                     \
    {#name, PropertyValue(interface_type::type{}).index(), #access},
#include "core/control/interface.inc"
    };
}

TEST(Properties, AreThoseOfTheInterface) {
    EXPECT_EQ(interfaceRows().size(), propertyTable().size());
    for (const auto& [name, type, access] : interfaceRows()) {
        SCOPED_TRACE(name);
        const PropertyRow* const row = findProperty(name);
        ASSERT_TRUE(row);
        EXPECT_EQ(row->defaultValue.index(), type);
        EXPECT_EQ(row->let == nullptr, access == "ReadOnly");
        EXPECT_EQ(row->key != nullptr, access.starts_with("Saved"));
    }
}

// Colours, font and whether it is enabled are set on the system's own pages.
TEST(Properties, ThatAreSavedHaveAFieldOnThePropertyPage) {
    std::multiset<std::string> wanted;
    for (const PropertyRow& row : persistedProperties())
        wanted.insert(row.name);
    std::multiset<std::string> found{"BackColor", "ForeColor", "Enabled", "Font"};
    for (const PropertyField& field : propertyFields())
        found.insert(field.property);
    EXPECT_EQ(found, wanted);
}

TEST(Properties, AreReadAndWrittenInOrder) {
    ScriptedControl control;
    scripted::PropertyBag bag;
    control.view->setProperty("EngineAddress", std::string());
    control.view->UserControl_WriteProperties(bag);
    control.view->UserControl_ReadProperties(bag);
    const auto known = persistedKeys();
    ASSERT_GE(bag.readKeys.size(), known.size());
    EXPECT_TRUE(std::equal(known.begin(), known.end(), bag.readKeys.begin()));
    bag.readKeys.emplace_back("MinEventLevel");
    EXPECT_EQ(bag.writtenKeys, bag.readKeys);
    EXPECT_TRUE(bag.values.empty()) << "defaults are not stored";
    EXPECT_EQ(control.view->property("FetchDelay"), PropertyValue(int32_t{300}));
    EXPECT_EQ(control.view->property("EncBytes"), PropertyValue(int32_t{1640}));
    EXPECT_EQ(control.view->property("PrintCapFontSize"), PropertyValue(int16_t{12}));
    EXPECT_EQ(control.view->property("PrintPageNums"), PropertyValue(true));
    EXPECT_EQ(control.view->property("Delimiter"), PropertyValue(std::string("\u00B7")));
}

// The log is the process's; what a form keeps of one control must not name another's file.
TEST(Properties, TheNameOfTheLogIsEachControlsOwn) {
    ScriptedControl first;
    ScriptedControl second;
    const std::string path = (first.scratch->path() / "own.log").string();
    first.view->setProperty("LogFileName", path);
    EXPECT_EQ(first.view->property("LogFileName"), PropertyValue(path));
    EXPECT_EQ(second.view->property("LogFileName"), PropertyValue(std::string()));
    first.view->setProperty("LogFileName", std::string());
    EXPECT_EQ(first.view->property("LogFileName"), PropertyValue(std::string()));
}

TEST(Properties, ComeBackAsTheyWereSaved) {
    ScriptedControl control;
    scripted::PropertyBag bag;
    const std::map<std::string, PropertyValue> values = {
        {"PrintImageDesc", std::string("a map")},
        {"MinLogLevel", int32_t{2}},
        {"FetchDelay", int32_t{50}},
        {"BackColor", Colour{0x00123456}},
        {"LogFileName", (control.scratch->path() / "x.log").string()},
        {"DfPrintPaperSize", int32_t{9}},
        {"Font", Font{"Arial", 10, true, false, false, false}}};
    for (const auto& [name, value] : values)
        control.view->setProperty(name, value);
    control.view->UserControl_WriteProperties(bag);
    EXPECT_EQ(bag.values.count("ImageDesc") + bag.values.count("MinEventLevel"), 2U);
    ScriptedControl other;
    other.view->UserControl_ReadProperties(bag);
    for (const auto& [name, value] : values)
        EXPECT_EQ(other.view->property(name), value) << name;

    scripted::PropertyBag wrong;
    wrong.values = {{"PrintImageDesc", std::string("x")}, {"MinLogLevel", int32_t{1}},
                    {"FetchDelay", std::string("soon")},  {"BorderStyle", int16_t{7}},
                    {"PublicKey", std::string()},         {"EncBytes", std::string(" 12 ")}};
    other.view->UserControl_ReadProperties(wrong);
    EXPECT_EQ(other.view->property("PrintImageDesc"), PropertyValue(std::string()));
    EXPECT_EQ(other.view->property("FetchDelay"), PropertyValue(int32_t{300}));
    EXPECT_EQ(other.view->property("BorderStyle"), PropertyValue(int16_t{0}));
    EXPECT_EQ(other.view->property("PublicKey"), PropertyValue(std::string("OrrelKeyset qFlow")));
    EXPECT_EQ(other.view->property("EncBytes"), PropertyValue(int32_t{12}));
    EXPECT_TRUE(other.messageBox->questions.empty());
}

TEST(Properties, NoLogWhereTheHostAllowsNoFiles) {
    ScriptedControl control;
    control.container->filesAllowed = false;
    const auto path = control.scratch->path() / "x.log";
    try {
        control.view->setProperty("LogFileName", path.string());
        ADD_FAILURE() << "a log was begun";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number, error_number::PathFileAccess);
    }
    control.open(1001, 1, 2);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_NO_THROW(control.view->setProperty("LogFileName", std::string()));
}

TEST(Properties, AnnounceTheirChanges) {
    ScriptedControl control;
    auto& changed = control.container->changed;
    changed.clear();
    const size_t usualButtons = control.view->tlbImage().Buttons.size();
    control.view->setProperty("PrintFee", std::string("1"));
    control.view->setProperty("ThumbsAvailable", true);
    control.view->setProperty("ThumbsAvailable", true);
    control.view->setProperty("BookmarkAvailable", true);
    control.view->setProperty("PrintCancelJob", true);
    control.view->setProperty("MinLogLevel", int32_t{1});
    EXPECT_THAT(changed, ElementsAre("PrintFee", "ThumsAvailable", "BookmarkAvailable", "MinLogLevel"));
    EXPECT_EQ(control.view->tlbImage().Buttons.front().Key, "THUMBS");
    EXPECT_EQ(control.view->tlbImage().Buttons.back().Key, "STAR");
    EXPECT_EQ(control.view->tlbImage().Buttons.size(), usualButtons + 4) << "separators too";
    control.view->setProperty("ThumbsAvailable", false);
    control.view->setProperty("BookmarkAvailable", false);
    EXPECT_EQ(control.view->tlbImage().Buttons.front().Key, "PRINT");
    EXPECT_EQ(control.view->tlbImage().Buttons.size(), usualButtons);
}

TEST(Properties, RefuseBadValues) {
    ScriptedControl control;
    const auto failure = [&](const char* name, const PropertyValue& value) {
        try {
            control.view->setProperty(name, value);
        } catch (const Error& error) {
            return error.Number;
        }
        return 0;
    };
    EXPECT_EQ(failure("PublicKey", std::string()), 380);
    EXPECT_EQ(control.view->property("PublicKey"), PropertyValue(std::string("OrrelKeyset qFlow")));
    EXPECT_EQ(failure("FetchDelay", int32_t{-1}), 380);
    EXPECT_EQ(failure("PageCount", int16_t{3}), 383);
    EXPECT_EQ(failure("MachineName", std::string("x")), 383);
    EXPECT_EQ(failure("Colour", std::string("x")), 438);
    EXPECT_EQ(failure("EncBytes", std::string("x")), 13);
    EXPECT_EQ(failure("NoR", int32_t{40000}), 6);
    EXPECT_EQ(failure("Font", std::string("Arial")), 13);
    for (const PropertyValue& number : {PropertyValue(Colour{250}), PropertyValue(int16_t{250})}) {
        control.view->setProperty("FetchDelay", int32_t{0});
        EXPECT_EQ(failure("FetchDelay", number), 0);
        EXPECT_EQ(control.view->property("FetchDelay"), PropertyValue(int32_t{250}));
    }
    EXPECT_EQ(failure("Delimiter", std::string("   |x ")), 0);
    EXPECT_EQ(control.view->property("Delimiter"), PropertyValue(std::string("|")));
    EXPECT_FALSE(control.view->trySetProperty("PublicKey", std::string()));
    int32_t number = 0;
    int32_t context = 0;
    std::string source;
    std::string text;
    control.view->GetLastError(number, source, text, text, context);
    EXPECT_EQ(number, 380);
    EXPECT_EQ(source, "VellaneInet.ImageView.PublicKey");
}

TEST(Properties, OfTheUserAreKeptFromRunToRun) {
    ScriptedControl first;
    EXPECT_TRUE(first.view->menuChecks().mnuPopup1LargeButtons);
    EXPECT_TRUE(first.view->menuChecks().mnuPopupGrayscale);
    first.destroy();
    const auto key = [](const char* name) {
        return std::make_pair(std::string("Settings"), std::string(name));
    };
    EXPECT_EQ(first.settings->values[key("ButtonCaptions")], "FALSE");
    EXPECT_EQ(first.settings->values[key("BigButtons")], "TRUE");
    EXPECT_EQ(first.settings->values[key("GrayScale")], "TRUE");

    ScriptedControl second;
    second.settings->values = {
        {key("ButtonCaptions"), "TRUE"}, {key("BigButtons"), "FALSE"}, {key("GrayScale"), "rubbish"}};
    second.view->UserControl_ReadProperties(scripted::PropertyBag());
    EXPECT_TRUE(second.view->menuChecks().mnuPopup1ButtonCaptions);
    EXPECT_TRUE(second.view->menuChecks().mnuPopup1SmallButtons);
    EXPECT_TRUE(second.view->menuChecks().mnuPopupGrayscale);
    EXPECT_EQ(second.view->tlbImage().find("PRINT")->Caption, "Print");
    EXPECT_EQ(second.view->property("UserLogin"), PropertyValue(std::string("jdoe")));
    EXPECT_EQ(second.view->property("MachineName"), PropertyValue(std::string("WS-0042")));
}

TEST(Properties, TheAmbientColourIsTaken) {
    ScriptedControl control;
    control.view->UserControl_AmbientChanged("Font");
    EXPECT_EQ(control.view->property("BackColor"), PropertyValue(Colour{0x8000000F}));
    control.view->UserControl_AmbientChanged("BackColor");
    EXPECT_EQ(control.view->property("BackColor"), PropertyValue(control.container->backColor));
    EXPECT_THAT(control.view->txtDebug().lines(),
                testing::Contains("UserControl_AmbientChanged Fired for 'BackColor'"));
}

TEST(Resize, GrayScaleIsOffUntilTheSizeStays) {
    ScriptedControl control;
    auto& view = control.view->lvrImage();
    control.view->UserControl_Resize();
    control.view->UserControl_Resize();
    EXPECT_FALSE(view.GrayScale());
    EXPECT_FALSE(control.view->isIdle());
    control.timers->fireRunning();
    EXPECT_TRUE(view.GrayScale());
    EXPECT_TRUE(control.view->isIdle());
    view.setGrayScale(false);
    control.view->UserControl_Resize();
    control.timers->fireRunning();
    EXPECT_FALSE(view.GrayScale());
}

TEST(Layout, ChildrenShareTheControl) {
    LayoutMeasures measures{800, 600, 40, 14, 78, 38, true};
    EXPECT_EQ(statusHeight(measures), 20);
    ControlLayout layout = layOut(measures);
    EXPECT_EQ(layout.toolbar, (Rectangle{0, 0, 800, 40}));
    EXPECT_EQ(layout.view, (Rectangle{0, 40, 800, 540}));
    EXPECT_EQ(layout.readOut, (Rectangle{6, 580, 78, 20}));
    EXPECT_EQ(layout.progress, (Rectangle{630, 586, 114, 8}));
    EXPECT_EQ(layout.status, (Rectangle{96, 580, 528, 20}));
    EXPECT_EQ(layout.zoom, (Rectangle{756, 580, 38, 20}));
    measures.fromRight = true;
    layout = layOut(measures);
    EXPECT_EQ(layout.view, (Rectangle{0, 40, 800, 540}));
    EXPECT_EQ(layout.readOut, (Rectangle{716, 580, 78, 20}));
    EXPECT_EQ(layout.status, (Rectangle{176, 580, 528, 20}));
    EXPECT_EQ(layout.progress, (Rectangle{56, 586, 114, 8}));
    EXPECT_EQ(layout.zoom, (Rectangle{6, 580, 38, 20}));
    measures.scale = 2;
    EXPECT_EQ(statusHeight(measures), 26);
    EXPECT_EQ(layOut(measures).zoom, (Rectangle{12, 574, 38, 26}));
    EXPECT_EQ(layOut(measures).progress.width, 228);
    measures.scale = 1;
    measures.debugShown = true;
    layout = layOut(measures);
    EXPECT_EQ(layout.view.height + layout.debug.height, 540);
    EXPECT_EQ(layout.debug.top, layout.view.top + layout.view.height);
    for (const int32_t size : {0, 1, 30, 50, 100}) {
        measures.width = measures.height = size;
        layout = layOut(measures);
        for (const Rectangle& box : {layout.toolbar, layout.view, layout.debug, layout.readOut, layout.status,
                                     layout.progress, layout.zoom})
            EXPECT_TRUE(box.width >= 0 && box.height >= 0) << size;
    }
}

} // namespace
} // namespace pixmo
