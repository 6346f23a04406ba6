// A host that is not linked to the library: it loads the package by name, as a designer would, and knows its components
// from the palette, text forms and published properties alone.

#include "framework/system/formloader.h"
#include "framework/system/stringlist.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "framework/windows/edit.h"
#include "framework/windows/forms.h"
#include "framework/windows/packages.h"
#include "framework/windows/standardcontrols.h"
#include "tests/support/handlecount.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <oleacc.h>
#include <set>

using namespace framework;

namespace {

constexpr const char* formText = "object Form1: TForm\n"
                                 "  object Edit1: TZOREdit\n"
                                 "    Width = 100\n"
                                 "    Text = 'found'\n"
                                 "    Wymagany = wRequired\n"
                                 "    BoundLabel.Active = True\n"
                                 "  end\n"
                                 "  object Amount: TZORFloatEdit\n"
                                 "    Value = 12.500000000000000000\n"
                                 "  end\n"
                                 "end\n";

const TPalettePage* PageOf(const String& name) {
    const auto found = std::ranges::find(PalettePages(), name, &TPalettePage::Name);
    return found == PalettePages().end() ? nullptr : &*found;
}

String RefusalOf(auto&& action) {
    try {
        action();
    } catch (const EPackageError& error) {
        return error.GetMessageText();
    }
    return u"(done)";
}

String ProgramFolder() {
    const String program = ModuleFileName(nullptr);
    return program.substr(0, program.find_last_of(u'\\') + 1);
}

/// A shown form with one of each of the page's components.
std::unique_ptr<TComponent> ShowAllOf(const TPalettePage& page) {
    String text = u"object Form1: TForm\n  Width = 900\n  Height = 900\n";
    for (const TClassInfo* info : page.Classes)
        text += u"  object " + info->Name().substr(1) + u"1: " + info->Name() + u"\n  end\n";
    auto form = CreateFromTextForm(Utf8Encode(text + u"end\n"), nullptr);
    As<TForm>(form.get())->Show();
    Application->ProcessMessages();
    return form;
}

/// The windows of this thread that are seen, those inside others as well.
std::vector<HWND> VisibleWindows() {
    const auto add = [](HWND window, LPARAM windows) -> BOOL {
        if (IsWindowVisible(window))
            reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
        return TRUE;
    };
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&windows));
    const std::vector<HWND> tops = windows;
    for (const HWND top : tops)
        EnumChildWindows(top, add, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

class Packages : public testing::Test {
protected:
    static void SetUpTestSuite() {
        Application->Initialize();
        RegisterStandardControls();
    }
};

/// A class of the host's that bears the name of one of the library's.
class THostEdit : public TEdit {
    FRAMEWORK_CLASS(THostEdit)

public:
    using TEdit::TEdit;
};

const TClassInfo& THostEdit::StaticClass() {
    static const TClassInfo info = DescribeClass<THostEdit>(u"TZOREdit", TEdit::StaticClass());
    return info;
}

TEST_F(Packages, ComponentsComeWithThePackageAndLeaveWithIt) {
    int told = 0;
    Application->OnPaletteChange = [&](TObject*) {
        // What goes is gone from the palette already, and its code is still there.
        EXPECT_EQ(PageOf(u"ZOR") != nullptr, ++told % 2 == 1);
        EXPECT_NE(GetModuleHandleW(L"zor.dll"), nullptr);
        throw EComponentError(u"a handler that fails");
    };
    int failures = 0;
    Application->OnException = [&](TObject*, const std::exception&) { ++failures; };
    // Twice: the second life begins as the first did.
    for (int life = 0; life < 2; ++life) {
        SCOPED_TRACE(life);
        ASSERT_EQ(GetClass(u"TZOREdit"), nullptr);
        const HMODULE package = LoadPackage(u"zor.dll");
        ASSERT_EQ(LoadedPackages().size(), 1u);
        EXPECT_EQ(LoadedPackages()[0].FileName, ProgramFolder() + u"zor.dll");
        EXPECT_EQ(PackageOf(FindClass(u"TZOREdit")), package);
        EXPECT_EQ(PackageOf(FindClass(u"TEdit")), nullptr);
        const TPalettePage* page = PageOf(u"ZOR");
        ASSERT_NE(page, nullptr);
        EXPECT_EQ(page->Classes.size(), 21u);
        EXPECT_NE(std::ranges::find(page->Classes, u"TZOREdit", &TClassInfo::Name), page->Classes.end());

        auto form = CreateFromTextForm(formText, nullptr);
        TComponent* edit = form->FindComponent(u"Edit1");
        As<TForm>(form.get())->Show();
        Application->ProcessMessages();
        EXPECT_EQ(GetPropValue(*edit, u"Wymagany"), Variant(u"wRequired"));
        EXPECT_EQ(GetPropValue(*edit, u"Text"), Variant(u"found"));
        EXPECT_EQ(GetPropValue(*form->FindComponent(u"Amount"), u"Value"), Variant(12.5));
        // An exception that is raised in the framework's module on behalf of the package's, and caught in this one.
        EXPECT_THROW(SetPropValue(*edit, u"Wymagany", Variant(u"wPerhaps")), EPropertyError);

        const String text = RefusalOf([&] { UnloadPackage(package); });
        EXPECT_EQ(text, u"Package zor.dll cannot be unloaded while its components live: Form1.Edit1 (TZOREdit) "
                        u"and 1 more");
        EXPECT_NE(GetClass(u"TZOREdit"), nullptr) << "a refusal changes nothing";
        form.reset();

        // Who loads twice unloads twice.
        EXPECT_EQ(LoadPackage(u"zor.dll"), package);
        UnloadPackage(package);
        EXPECT_NE(GetClass(u"TZOREdit"), nullptr);
        UnloadPackage(package);
        EXPECT_EQ(GetClass(u"TZOREdit"), nullptr);
        EXPECT_EQ(PageOf(u"ZOR"), nullptr);
        EXPECT_EQ(GetModuleHandleW(L"zor.dll"), nullptr) << "the file is free";
        EXPECT_NE(GetClass(u"TEdit"), nullptr) << "the framework's own classes stay";
        EXPECT_THROW(CreateFromTextForm(formText, nullptr), EFormLoad);
        EXPECT_NE(RefusalOf([&] { UnloadPackage(package); }), u"(done)");
        EXPECT_TRUE(LoadedPackages().empty());
    }
    EXPECT_EQ(told, 4);
    EXPECT_EQ(failures, 4);
    Application->OnPaletteChange = nullptr;
    Application->OnException = nullptr;
}

TEST_F(Packages, WhatIsNoPackageIsRefusedWithTheReason) {
    const auto refusal = [](const String& name) { return RefusalOf([&] { LoadPackage(name); }); };
    const String nowhere = refusal(u"nowhere.dll");
    EXPECT_TRUE(nowhere.starts_with(u"Cannot load package nowhere.dll: "));
    EXPECT_TRUE(nowhere.ends_with(u" (the package, or a module that it needs)"));
    EXPECT_EQ(refusal(u"version.dll"), u"Cannot load package version.dll: it does not export FrameworkPackageEntry");
    EXPECT_EQ(refusal(u"older.dll"),
              u"Cannot load package older.dll: it was built with version 0.1.0 of the framework, "
              u"this is " +
                  Utf8Decode(FrameworkVersion));
    EXPECT_EQ(refusal(u"yesterday.dll"),
              u"Cannot load package yesterday.dll: it was built with other headers than the framework; build both from "
              u"one state of them");
    EXPECT_EQ(refusal(u"embedding.dll"),
              u"Cannot load package embedding.dll: it holds a framework of its own; link it to "
              u"the framework's shared library");
    const std::pair<const wchar_t*, String> ways[] = {
        {L"1", u"no licence"}, {L"2", u""}, {L"3", u"its registration raised something that is no exception"}};
    for (const auto& [way, text] : ways) {
        SetEnvironmentVariableW(L"REFUSAL", way);
        EXPECT_EQ(refusal(u"refusing.dll"), u"Cannot load package refusing.dll: " + text);
        EXPECT_EQ(GetClass(u"TRefusingComponent"), nullptr);
        EXPECT_EQ(PageOf(u"Refused"), nullptr);
        EXPECT_EQ(GetModuleHandleW(L"refusing.dll"), nullptr);
    }
    RegisterClasses({&THostEdit::StaticClass()});
    EXPECT_EQ(refusal(u"zor.dll"), u"Cannot load package zor.dll: Another class is registered as TZOREdit");
    EXPECT_EQ(GetClass(u"TZOREdit"), &THostEdit::StaticClass());
    EXPECT_EQ(PageOf(u"ZOR"), nullptr);
    EXPECT_EQ(GetClass(u"TZORADODataSet"), nullptr) << "also what came before it";
    UnRegisterClasses({&THostEdit::StaticClass()});
}

// What opens was open, and somebody still holds what screen readers ask.
TEST_F(Packages, GoesAfterAllItsComponentsWereAtWork) {
    const HMODULE package = LoadPackage(ProgramFolder() + u"zor.dll");
    std::set<String> opened;
    std::vector<IAccessible*> held;
    {
        const auto form = ShowAllOf(*PageOf(u"ZOR"));
        for (int i = 0; i < form->ComponentCount; ++i) {
            auto* control = As<TWinControl>(form->Components[i]);
            if (!control || !control->CanFocus())
                continue;
            control->SetFocus();
            if (control->ClassInfo().FindProperty(u"Items"))
                As<TStrings>(GetObjectProp(*control, u"Items"))->Add(u"choice");
            for (const WPARAM key : {VK_F7, VK_F4, VK_ESCAPE}) {
                SendMessageW(GetFocus(), WM_KEYDOWN, key, 0);
                SendMessageW(GetFocus(), WM_KEYUP, key, 0);
                Application->ProcessMessages();
                for (const HWND window : VisibleWindows()) {
                    wchar_t name[64];
                    GetClassNameW(window, name, 64);
                    if (!(GetWindowLongW(window, GWL_STYLE) & WS_CHILD))
                        opened.insert(FromWide(name));
                    void* object = nullptr;
                    if (AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                                   &object) == S_OK)
                        held.push_back(static_cast<IAccessible*>(object));
                }
            }
        }
    }
    Application->ProcessMessages();
    const std::set<String> all = {u"TForm", u"Textrasignsfrm", u"Tform_list", u"Tzor_cal_popup_form"};
    EXPECT_EQ(opened, all);
    UnloadPackage(package);
    WNDCLASSW windowClass;
    EXPECT_FALSE(GetClassInfoW(GetModuleHandleW(nullptr), L"TZOREdit", &windowClass)) << "its window classes went, too";
    Application->ProcessMessages();
    EXPECT_NE(GetModuleHandleW(L"zor.dll"), nullptr) << "objects of its own are among those that are held";
    for (IAccessible* object : held) {
        long children = 0;
        object->get_accChildCount(&children);
        object->Release();
    }
    EXPECT_EQ(GetModuleHandleW(L"zor.dll"), nullptr) << "the last who held one of its objects let the file go";
}

TEST_F(Packages, LeaveNothingBehindHoweverOftenTheyCome) {
    testsupport::ExpectSteadyHandles(
        100,
        [] {
            const HMODULE package = LoadPackage(u"zor.dll");
            ShowAllOf(*PageOf(u"ZOR")).reset();
            Application->ProcessMessages();
            UnloadPackage(package);
        },
        testsupport::FontsLostByNativeCalendar());
}

// A package of one's own with a control that descends from one of the library's.
TEST_F(Packages, StandOnEachOther) {
    const HMODULE codes = LoadPackage(u"derived.dll");
    EXPECT_NE(GetModuleHandleW(L"zor.dll"), nullptr) << "Windows loads what it needs";
    EXPECT_EQ(PageOf(u"ZOR"), nullptr) << "but nobody asked for its palette page";
    const HMODULE package = LoadPackage(u"zor.dll");
    const auto form = CreateFromTextForm("object Form1: TForm\n"
                                         "  object Code1: TCodeEdit\n"
                                         "    LocalComma = True\n"
                                         "    Wymagany = wRequired\n"
                                         "  end\n"
                                         "end\n",
                                         nullptr);
    TComponent* code = form->FindComponent(u"Code1");
    EXPECT_EQ(GetPropValue(*code, u"LocalComma"), Variant(true));
    // Its ancestor's package has to stay as well.
    EXPECT_NE(RefusalOf([&] { UnloadPackage(codes); }), u"(done)");
    EXPECT_NE(RefusalOf([&] { UnloadPackage(package); }), u"(done)");
    SetPropValue(*code, u"LocalComma", Variant(false));
    delete code;
    UnloadPackage(package);
    EXPECT_EQ(GetClass(u"TZOREdit"), nullptr);
    EXPECT_NE(GetClass(u"TCodeEdit"), nullptr);
    UnloadPackage(codes);
    EXPECT_EQ(GetClass(u"TCodeEdit"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"zor.dll"), nullptr);
}

} // namespace
