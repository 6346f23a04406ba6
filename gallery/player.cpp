#include "gallery/player.h"

#include "framework/graphics/bitmaps.h"
#include "framework/system/files.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "gallery/report.h"
#include "gallery/scriptparts.h"

#include <algorithm>
#include <filesystem>

namespace gallery {

namespace {

constexpr std::uint32_t kTickMilliseconds = 10;
constexpr int kForegroundMilliseconds = 10000;
// What input brings about may need a moment after its messages have been handled: posted messages, timers.
constexpr int kExpectMilliseconds = 1000;

String ComparisonText(TScriptComparison comparison) {
    constexpr const char16_t* kTexts[] = {u"=", u"<>", u"contains"};
    return kTexts[static_cast<int>(comparison)];
}

bool Compare(const String& actual, TScriptComparison comparison, const String& wanted) {
    switch (comparison) {
    case TScriptComparison::Equal:
        return actual == wanted;
    case TScriptComparison::Different:
        return actual != wanted;
    case TScriptComparison::Contains:
        return Pos(wanted, actual) > 0;
    case TScriptComparison::Shows:
        break;
    }
    return false;
}

} // namespace

TPlayer::TPlayer(TGalleryForm& gallery, const String& shotsFolder)
    : FGallery(gallery), FShotsFolder(shotsFolder), FTimer(nullptr) {
    FTimer.SetEnabled(false);
    FTimer.SetInterval(kTickMilliseconds);
    FTimer.OnTimer = [this](TObject*) { Tick(); };
}

void TPlayer::Add(const String& scriptFile, std::optional<int> page) {
    FScripts.push_back({scriptFile, page, ParseScript(ReadFileBytes(scriptFile), scriptFile)});
}

void TPlayer::Start() {
    FTimer.SetEnabled(true);
}

// The system gives timer messages when no input, posted message or painting is waiting, so each tick finds the
// consequences of the one before; this holds within message boxes and menus, too, which run loops of their own.
void TPlayer::Tick() {
    if (FTicking || FFailed)
        return;
    FTicking = true;
    try {
        if (!FPending.empty()) {
            if (FPending.front()()) {
                FPending.pop_front();
                FWaitingSince = 0;
            }
        } else if (FScript == FScripts.size()) {
            Finish();
        } else if (!FStarted) {
            FStarted = Begin(FScripts[FScript]);
        } else if (FNext == FScripts[FScript].Commands.size()) {
            End(FScripts[FScript]);
        } else if (Execute(FScripts[FScript].Commands[FNext])) {
            ++FNext;
            FWaitingSince = 0;
        }
    } catch (const std::exception& error) {
        Fail(Utf8Decode(error.what()));
    }
    FTicking = false;
}

bool TPlayer::Begin(const TScript& script) {
    const HWND window = FGallery.GetHandle();
    if (GetForegroundWindow() != window) {
        if (TimeIsUp(kForegroundMilliseconds))
            throw EInvalidOperation(u"the gallery did not get into the foreground, where input goes");
        SetForegroundWindow(window);
        return false;
    }
    FWaitingSince = 0;
    if (script.Page)
        FGallery.SetPageIndex(*script.Page);
    return true;
}

void TPlayer::End(const TScript& script) {
    WriteOutput(script.FileName + u": " + IntToStr(script.Commands.size()) + u" commands played");
    ++FScript;
    FNext = 0;
    FLine = 0;
    FStarted = false;
}

void TPlayer::Fail(const String& problem) {
    if (FFailed)
        return;
    FFailed = true;
    FTimer.SetEnabled(false);
    WriteError(Place() + problem);
    try {
        Shoot(u"failure");
    } catch (const std::exception& error) {
        WriteError(Utf8Decode(error.what()));
    }
    TheApplication().Terminate();
}

String TPlayer::Place() const {
    if (FScript == FScripts.size())
        return {};
    return FScripts[FScript].FileName + (FLine > 0 ? u"(" + IntToStr(FLine) + u"): " : String(u": "));
}

void TPlayer::Finish() {
    FTimer.SetEnabled(false);
    WriteOutput(IntToStr(FShots) + u" pictures taken");
    TheApplication().Terminate();
}

// Commands

bool TPlayer::Execute(const TScriptCommand& command) {
    FLine = command.Line;
    try {
        return Try(command);
    } catch (const EComponentError&) {
        // Like a person, the player waits a moment for what is not there yet.
        if (TimeIsUp(command.Action == TScriptAction::Wait ? command.Milliseconds : kExpectMilliseconds))
            throw;
        return false;
    }
}

bool TPlayer::Try(const TScriptCommand& command) {
    if (!command.Target.Name.empty())
        FLastPoint = FindPoint(command.Target);
    const TPoint point = FLastPoint;
    switch (command.Action) {
    case TScriptAction::Click:
        QueueClick(command, point);
        return true;
    case TScriptAction::Type:
        Queue(TextInputs(command.Text));
        return true;
    case TScriptAction::Key:
        for (int i = 0; i < command.Count; ++i)
            Queue(KeyInputs(command.Key));
        return true;
    case TScriptAction::Hold:
        FHeld = command.Held;
        QueuePosition(point, FHeld);
        return true;
    case TScriptAction::Release:
        FHeld.clear();
        Queue(KeyUpInputs(command.Held));
        return true;
    case TScriptAction::MouseMove:
    case TScriptAction::MouseDown:
        QueuePosition(point, FHeld);
        if (command.Action == TScriptAction::MouseDown)
            Queue(MouseButtonInputs(point, command.Button, true));
        return true;
    case TScriptAction::MouseUp:
        QueuePosition(point, FHeld);
        Queue(MouseButtonInputs(point, command.Button, false));
        return true;
    case TScriptAction::Wheel:
        QueuePosition(point, {});
        Queue(WheelInputs(point, command.Count));
        return true;
    case TScriptAction::Set:
        Set(command);
        return true;
    case TScriptAction::Wait:
        return Holds(command, command.Milliseconds);
    case TScriptAction::Expect:
        return Holds(command, kExpectMilliseconds);
    case TScriptAction::Shot:
        Shoot(command.Text);
        return true;
    }
    return true;
}

void TPlayer::Queue(TInputs inputs) {
    FPending.push_back([inputs = std::move(inputs)] {
        if (!Send(inputs))
            throw EInvalidOperation(u"the system does not take input");
        return true;
    });
}

void TPlayer::QueuePosition(TPoint point, const std::vector<std::uint16_t>& held) {
    FPending.push_back([this, point, held] { return InPosition(point, held); });
}

// What the display server still had to tell of the pointer and the keys, when a popup went for instance, may come after
// our own input and undo it: such input is sent again.
bool TPlayer::InPosition(TPoint point, const std::vector<std::uint16_t>& held) {
    POINT actual{};
    GetCursorPos(&actual);
    const bool there = FromWin(actual) == point;
    const bool keysDown =
        std::all_of(held.begin(), held.end(), [](std::uint16_t key) { return GetAsyncKeyState(key) < 0; });
    const ULONGLONG now = GetTickCount64();
    if (there && keysDown) {
        if (FSteadySince == 0)
            FSteadySince = now;
        if (now - FSteadySince < PointerEchoMilliseconds)
            return false;
        FSteadySince = 0;
        return true;
    }
    FSteadySince = 0;
    if (TimeIsUp(kExpectMilliseconds))
        throw EInvalidOperation(u"the system does not let the pointer be moved or keys be held down");
    if (!there)
        Send(MouseMoveInputs(point));
    else
        Send(KeyDownInputs(held));
    return false;
}

bool TPlayer::TimeIsUp(int milliseconds) {
    const ULONGLONG now = GetTickCount64();
    if (FWaitingSince == 0)
        FWaitingSince = now;
    return now - FWaitingSince >= static_cast<ULONGLONG>(milliseconds);
}

void TPlayer::QueueClick(const TScriptCommand& command, TPoint point) {
    QueuePosition(point, command.Held);
    if (command.Double) {
        // At once, so that it stays a double click however slow the machine is.
        TInputs inputs;
        for (const bool down : {true, false, true, false}) {
            const TInputs button = MouseButtonInputs(point, command.Button, down);
            inputs.insert(inputs.end(), button.begin(), button.end());
        }
        Queue(std::move(inputs));
    } else {
        // One after the other: what the press brings about may take time and may ask for the state of a key.
        Queue(MouseButtonInputs(point, command.Button, true));
        QueuePosition(point, command.Held);
        Queue(MouseButtonInputs(point, command.Button, false));
    }
    if (!command.Held.empty())
        Queue(KeyUpInputs(command.Held));
}

bool TPlayer::Holds(const TScriptCommand& command, int milliseconds) {
    const bool shows = command.Comparison == TScriptComparison::Shows;
    const String actual = shows ? String() : RowText(FindProperty(command.Path));
    if (shows ? Shows(command.Path) : Compare(actual, command.Comparison, command.Text))
        return true;
    if (!TimeIsUp(milliseconds))
        return false;
    Fail(shows ? command.Path + u" does not show"
               : u"expected " + command.Path + u" " + ComparisonText(command.Comparison) + u" \"" + command.Text +
                     u"\", found \"" + actual + u"\"");
    return false;
}

bool TPlayer::Shows(StringView name) const {
    const TPersistent* object = FindNamed(name);
    if (object == &FMessageBox)
        return true;
    const auto* control = As<TWinControl>(object);
    return control && control->HandleAllocated() && IsWindowVisible(control->GetHandle());
}

void TPlayer::Set(const TScriptCommand& command) {
    WriteRow(FindProperty(command.Path), command.Text);
}

/// What of a place the screens show: nothing can be taken from beside them.
static TRect OnDesktop(const TRect& place) {
    const TRect desktop = Bounds(GetSystemMetrics(SM_XVIRTUALSCREEN), GetSystemMetrics(SM_YVIRTUALSCREEN),
                                 GetSystemMetrics(SM_CXVIRTUALSCREEN), GetSystemMetrics(SM_CYVIRTUALSCREEN));
    return {std::max(place.Left, desktop.Left), std::max(place.Top, desktop.Top), std::min(place.Right, desktop.Right),
            std::min(place.Bottom, desktop.Bottom)};
}

void TPlayer::Shoot(const String& name) {
    if (FShotsFolder.empty())
        return;
    FGallery.ShowLatest(); // steps that follow closely upon each other leave no time for it
    std::filesystem::create_directories(std::filesystem::path(FShotsFolder));
    String number = IntToStr(++FShots);
    if (number.size() < 2)
        number.insert(0, 1, u'0');
    CaptureScreen(OnDesktop(ScreenRect(FGallery)))->SaveToPng(FShotsFolder + u"\\" + number + u"-" + name + u".png");
}

// Names

TCustomForm* TPlayer::FindPopup() const {
    TCustomForm* popup = nullptr;
    for (int i = 0; i < TheScreen().GetFormCount(); ++i) {
        TCustomForm* form = TheScreen().GetForm(i);
        const bool ours = form == &FGallery || form == FGallery.GetPage();
        if (!ours && (form->GetVisible() || !popup || !popup->GetVisible()))
            popup = form;
    }
    return popup;
}

TPersistent* TPlayer::FindNamed(StringView name) const {
    if (SameText(name, u"Popup"))
        return FindPopup();
    if (SameText(name, u"MessageBox"))
        return FMessageBox.Find() ? &FMessageBox : nullptr;
    if (SameText(name, u"Hint"))
        return FindControl(FindWindowW(L"THintWindow", nullptr));
    if (TComponent* component = FGallery.FindByName(name))
        return component;
    const TCustomForm* popup = FindPopup();
    return popup ? popup->FindComponent(name) : nullptr;
}

TPersistent& TPlayer::FindObject(StringView name) const {
    TPersistent* object = FindNamed(name);
    if (!object)
        throw EComponentError(u"there is no " + String(name) + u" on the page or in the gallery");
    return *object;
}

TInspectorRow TPlayer::FindProperty(StringView path) const {
    const std::size_t dot = path.find(u'.');
    TPersistent& object = FindObject(path.substr(0, dot));
    const auto row = FindRow(object, path.substr(dot + 1));
    if (!row)
        throw EPropertyError(u"a " + object.ClassName() + u" has no published property " +
                             String(path.substr(dot + 1)));
    return *row;
}

TRect TPlayer::FindPlace(const TScriptTarget& target) const {
    auto* control = As<TControl>(&FindObject(target.Name));
    if (!control)
        throw EComponentError(target.Name + u" is not visible at all");
    FGallery.ScrollIntoView(*control);
    if (target.Part.empty())
        return ScreenRect(*control);
    const auto place = FindPart(*control, target.Part);
    if (place)
        return *place;
    String words;
    for (const String& word : target.Part)
        words += u" " + word;
    throw EComponentError(target.Name + u" does not know its part" + words);
}

TPoint TPlayer::FindPoint(const TScriptTarget& target) const {
    const TRect place = FindPlace(target);
    if (target.At)
        return {place.Left + target.At->X, place.Top + target.At->Y};
    TPoint point{(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
    // Two quick clicks on one spot would count as a double click.
    if (point == FLastPoint)
        point.X += GetSystemMetrics(SM_CXDOUBLECLK);
    return point;
}

} // namespace gallery
