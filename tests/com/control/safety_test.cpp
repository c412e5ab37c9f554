// What a page or a script can make the control do to the files of the machine.
#include "faces/com/base/boundary.h"
#include "faces/com/control/identifiers.h"
#include "faces/com/control/safety.h"
#include "tests/com/control/hosting/container.h"
#include "tests/com/control/hosting/modalwatcher.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace pixmo::com::test {
namespace {

struct Trust {
    HostProfile profile;
    bool trusted;
};

constexpr Trust Trusts[] = {{ScriptOnly, false}, {Browser, false},     {FormDesign, true},
                            {FormRun, true},     {DatabaseForm, true}, {KeyboardStrict, true}};

/// A page whose browser says nothing: what its site offers tells.
constexpr HostProfile SilentPage{"silentPage", true, true, true, true};

class SafetyRule : public testing::Test {
protected:
    static DWORD enabled(const Container& host) {
        DWORD supported = 0;
        DWORD options = 0;
        check(host.as<IObjectSafety>()->GetInterfaceSafetyOptions(IID_IDispatch, &supported, &options));
        EXPECT_EQ(supported, Safety::Supported);
        return options;
    }

    static std::filesystem::path scratchFile(const char* name) {
        auto path = std::filesystem::temp_directory_path() / name;
        std::filesystem::remove(path);
        return path;
    }

    Library library;
};

TEST_F(SafetyRule, dependsOnHowTheControlIsPlaced) {
    for (const Trust& trust : Trusts) {
        Container host(library, trust.profile);
        host.initialise();
        EXPECT_EQ(enabled(host) == 0, trust.trusted) << trust.profile.name;
    }
    Container page(library, SilentPage);
    EXPECT_EQ(enabled(page), Safety::Supported);
}

TEST_F(SafetyRule, theHostsWordComesFirst) {
    Container form(library, FormRun);
    const auto options = form.as<IObjectSafety>();
    EXPECT_EQ(options->SetInterfaceSafetyOptions(IID_IDispatch, INTERFACESAFE_FOR_UNTRUSTED_CALLER,
                                                 INTERFACESAFE_FOR_UNTRUSTED_CALLER),
              S_OK);
    EXPECT_EQ(enabled(form), Safety::Supported);
    Container script(library, ScriptOnly);
    EXPECT_EQ(script.as<IObjectSafety>()->SetInterfaceSafetyOptions(IID_IDispatch, Safety::Supported, 0),
              S_OK);
    EXPECT_EQ(enabled(script), 0U);
    EXPECT_EQ(options->SetInterfaceSafetyOptions(IID_IDispatch, 0x8, 0x8), E_FAIL)
        << "a promise it cannot keep";
    EXPECT_EQ(options->SetInterfaceSafetyOptions(IID_IClassFactory, 1, 1), E_NOINTERFACE);
}

// No member that a script can call lifts the rule, or prints.
TEST_F(SafetyRule, noScriptCanLiftIt) {
    Container page(library, Browser);
    for (const wchar_t* name : {L"SetInterfaceSafetyOptions", L"Print", L"PrintOut", L"SavePage", L"Export"})
        EXPECT_EQ(page.idOf(name), DISPID_UNKNOWN) << toUtf8(name);
}

TEST_F(SafetyRule, aLogIsWrittenOnlyWhereItIsAllowed) {
    for (const Trust& trust : Trusts) {
        if (!trust.profile.userMode)
            continue;
        const auto log = scratchFile("pixmo-safety.log");
        Container host(library, trust.profile);
        host.initialise();
        host.put(L"LogFileName", Variant(std::string_view(toUtf8(log.wstring()))));
        host.as<IImageView>()->clearCache();
        EXPECT_EQ(std::filesystem::exists(log), trust.trusted) << trust.profile.name;
        host.put(L"LogFileName", Variant(std::string_view()));
        host.close();
    }
}

TEST_F(SafetyRule, aLogAmongAPagesParametersIsNotWritten) {
    const auto log = scratchFile("pixmo-parameter.log");
    Container page(library, Browser);
    BagContents parameters;
    parameters.texts[L"LogFileName"] = log.wstring();
    page.load(parameters);
    page.as<IImageView>()->clearCache();
    EXPECT_FALSE(std::filesystem::exists(log));
}

TEST_F(SafetyRule, aLogEndsWhenTheHostAsksForSafety) {
    const auto log = scratchFile("pixmo-ended.log");
    Container form(library, FormRun);
    form.initialise();
    form.put(L"LogFileName", Variant(std::string_view(toUtf8(log.wstring()))));
    form.as<IObjectSafety>()->SetInterfaceSafetyOptions(IID_IDispatch, Safety::Supported, Safety::Supported);
    std::filesystem::remove(log);
    form.as<IImageView>()->clearCache();
    EXPECT_FALSE(std::filesystem::exists(log));
    EXPECT_EQ(form.text(L"LogFileName"), "");
}

// The page's file and the network path would answer; the control must not even ask.
TEST_F(SafetyRule, localAddressesAreReadOnlyWhereItIsAllowed) {
    const ModalWatcher watcher(ModalWatcher::giveUp); // the control tells its user of the refusal
    const auto file = scratchFile("pixmo-answer.txt");
    std::ofstream(file) << "IC";
    for (const std::string& address :
         {"file:///" + toUtf8(file.generic_wstring()), toUtf8(file.wstring()),
          std::string("\\\\server\\share\\page"), std::string("file://server/share/page"),
          std::string("res://shell32.dll/2/16")}) {
        Container page(library, Browser);
        page.initialise();
        page.put(L"EngineAddress", Variant(std::string_view(address)));
        ASSERT_EQ(page.as<IImageView>()->LoadDocumentByDocID(5, 1), S_OK);
        long number = 0;
        long context = 0;
        Bstr source;
        Bstr description;
        Bstr help;
        page.as<IImageView>()->GetLastError(&number, source.receive(), description.receive(), help.receive(),
                                            &context);
        EXPECT_NE(number, 0) << address;
        EXPECT_EQ(page.text(L"PageCount"), "0") << address;
    }
}

} // namespace
} // namespace pixmo::com::test
