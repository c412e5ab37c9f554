#include "core/diag/cutilities.h"

#include "faces/scripted/scriptedports.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>

namespace pixmo {
namespace {

TEST(Utilities, PadString) {
    struct Case {
        const char* text;
        int16_t width;
        const char* pad;
        const char* result;
    };
    for (const Case& c : {Case{"  ab ", 5, "*", "ab***"}, Case{"  ab ", 2, "*", "ab"},
                          Case{"  ab ", 1, "*", "ab"}, Case{"\u00E9", 3, "\u00B7x", "\u00E9\u00B7\u00B7"},
                          Case{"", 2, " ", "  "}, Case{"a", -5, " ", "a"}})
        EXPECT_EQ(cUtilities::PadString(c.text, c.width, c.pad), c.result);
}

TEST(Utilities, NamesOfCodes) {
    const std::map<int32_t, std::string> names = {{0, "Error"},
                                                  {1, "FindingResource"},
                                                  {2, "Connecting"},
                                                  {3, "Redirecting"},
                                                  {4, "BeginDownloadData"},
                                                  {5, "DownloadingData"},
                                                  {6, "EndDownloadData"},
                                                  {7, "UNKNOWN STATUS CODE: 7"},
                                                  {8, "UNKNOWN STATUS CODE: 8"},
                                                  {9, "UNKNOWN STATUS CODE: 9"},
                                                  {10, "UsingCachedCopy"},
                                                  {11, "SendingRequest"},
                                                  {12, "UNKNOWN STATUS CODE: 12"},
                                                  {13, "MIMETypeAvailable"},
                                                  {14, "CacheFileNameAvailable"},
                                                  {15, "BeginSyncOperation"},
                                                  {16, "EndSyncOperation"},
                                                  {17, "UNKNOWN STATUS CODE: 17"},
                                                  {-1, "UNKNOWN STATUS CODE: -1"}};
    for (const auto& [code, name] : names)
        EXPECT_EQ(cUtilities::StatusCodeToText(code), name);
    EXPECT_EQ(cUtilities::AsyncTypeToText(0), "vbAsyncTypePicture");
    EXPECT_EQ(cUtilities::AsyncTypeToText(1), "vbAsyncTypeFile");
    EXPECT_EQ(cUtilities::AsyncTypeToText(2), "vbAsyncTypeByteArray");
    EXPECT_EQ(cUtilities::AsyncTypeToText(7), "UNKWOWN ASYNCTYPE: 7");
    EXPECT_FALSE(cUtilities::InIDE());
}

TEST(Utilities, Membership) {
    Collection collection;
    collection.Add("item", "key");
    EXPECT_TRUE(cUtilities::ElementExists(collection, "key"));
    EXPECT_FALSE(cUtilities::ElementExists(collection, "item"));
    EXPECT_TRUE(cUtilities::ElementExists(std::vector<std::string>{"a", "b"}, "b"));
    EXPECT_FALSE(cUtilities::ElementExists(std::vector<std::string>{}, "b"));
    EXPECT_THROW(cUtilities::ElementExists(std::string("b"), "b"), Error);
    EXPECT_THROW(collection.Add("x", "key"), Error);
    EXPECT_THROW(collection.Remove("none"), Error);
    EXPECT_TRUE(cUtilities::HasElements(std::vector<int>{0}));
    EXPECT_FALSE(cUtilities::HasElements(std::vector<int>{}));
    EXPECT_FALSE(cUtilities::HasElements(std::string("text")));
}

TEST(Utilities, FileSizesAreKilobytes) {
    scripted::ScratchFolder scratch;
    const auto path = scratch.path() / "file";
    std::ofstream(path) << std::string(1536, 'x');
    EXPECT_EQ(cUtilities::GetFileSize(path), 1.5F);
    EXPECT_EQ(cUtilities::GetFileSize(scratch.path() / "absent"), 0.0F);
}

TEST(Utilities, WhoIsThere) {
    class Nobody : public Identity {
        std::string userName() const override { throw Error(5, "nobody"); }
        std::string computerName() const override { return "WS-0042"; }
    };
    const Nobody nobody;
    cUtilities utilities(&nobody);
    EXPECT_EQ(utilities.GetNTLogin(), "");
    EXPECT_EQ(utilities.ERRR().Source(), "cUtilities.GetNTLogin");
    EXPECT_EQ(utilities.GetWorkstationID(), "WS-0042");
}

TEST(Utilities, ToolbarButtons) {
    cUtilities utilities;
    Toolbar toolbar;
    const ImageList small{16};
    const ImageList large{32};
    EXPECT_FALSE(
        utilities.AddToolButton(toolbar, "PRINT", "Print document", "Print", ButtonStyle::Default).Enabled);
    utilities.AddToolButton(toolbar, "sep1", "", "", ButtonStyle::Separator);
    EXPECT_EQ(toolbar.Buttons[0].ToolTipText, "Print document");
    EXPECT_TRUE(cUtilities::ButtonExists(toolbar, "PRINT"));
    EXPECT_FALSE(cUtilities::ButtonExists(toolbar, "print"));
    cUtilities::SetToolBarStyle(toolbar, &small, &large, true, true);
    EXPECT_EQ(toolbar.Images, &large);
    EXPECT_EQ(toolbar.Buttons[0].Image, "PRINT");
    EXPECT_EQ(toolbar.Buttons[0].Caption, "Print");
    EXPECT_EQ(toolbar.Buttons[1].Image, "");
    cUtilities::SetToolBarStyle(toolbar, &small, &large, false, false);
    EXPECT_EQ(toolbar.Images, &small);
    EXPECT_EQ(toolbar.Buttons[0].Caption, "");
}

} // namespace
} // namespace pixmo
