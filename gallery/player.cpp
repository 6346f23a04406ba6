#include "gallery/player.h"

#include "controls/Extrasigns.h"
#include "foundation/Zorboundlabel.h"
#include "framework/graphics/bitmaps.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/windows/application.h"
#include "gallery/files.h"
#include "gallery/report.h"
#include "gallery/rowlist.h"

#include <algorithm>
#include <filesystem>

namespace gallery {

namespace {

constexpr std::uint32_t kTickMilliseconds = 10;
constexpr int kForegroundMilliseconds = 10000;
// What input brings about may need a moment after its messages have been handled: posted messages, timers.
constexpr int kExpectMilliseconds = 1000;

TCustomForm* FindPopup() {
    TCustomForm* hidden = nullptr;
    for (int i = 0; i < TheScreen().GetFormCount(); ++i) {
        TCustomForm* form = TheScreen().GetForm(i);
        if (!form->InheritsFrom(ZOR::Textrasignsfrm::StaticClass()))
            continue;
        if (form->GetVisible())
            return form;
        hidden = form;
    }
    return hidden;
}

TRect ScreenRect(const TControl& control) {
    if (const auto* window = As<TWinControl>(&control)) {
        RECT rect{};
        GetWindowRect(window->GetHandle(), &rect);
        return FromWin(rect);
    }
    const TPoint origin = control.ClientToScreen({0, 0});
    return Bounds(origin.X, origin.Y, control.GetWidth(), control.GetHeight());
}

TRect OnScreen(const TControl& control, const TRect& rect) {
    const TPoint origin = control.ClientToScreen({0, 0});
    return rect.Offset(origin.X, origin.Y);
}

/// Parts of controls that are no row lists: keys of the popup, and the caption label of a field.
std::optional<TRect> FindPart(TControl& control, const std::vector<String>& words) {
    if (auto* popup = As<ZOR::Textrasignsfrm>(&control); popup && words.size() == 2 && SameText(words[0], u"key")) {
        const auto keys = popup->GetKeys();
        const int number = StrToIntDef(words[1], 0);
        if (number >= 1 && number <= static_cast<int>(keys.size()))
            return OnScreen(control, keys[static_cast<std::size_t>(number - 1)].rect);
    }
    if (words.size() == 1 && SameText(words[0], u"label") && IsPublishedProp(control, u"BoundLabel")) {
        const auto* label = As<ZOR::TZORBoundLabel>(GetObjectProp(control, u"BoundLabel"));
        if (label && label->GetLabel())
            return ScreenRect(*label->GetLabel());
    }
    if (auto* spots = dynamic_cast<TScriptSpots*>(&control)) {
        if (const auto rect = spots->FindSpot(words))
            return OnScreen(control, *rect);
    }
    return std::nullopt;
}

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

TPlayer::TPlayer(TGalleryForm& gallery, const String& scriptFile, const String& shotsFolder)
    : FGallery(gallery), FScriptFile(scriptFile), FShotsFolder(shotsFolder),
      FCommands(ParseScript(ReadFile(scriptFile), scriptFile)), FTimer(nullptr) {
    FTimer.SetEnabled(false);
    FTimer.SetInterval(kTickMilliseconds);
    FTimer.OnTimer = [this](TObject*) { Tick(); };
}

void TPlayer::Start() {
    FWaitingSince = GetTickCount64();
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
        } else if (!FStarted) {
            FStarted = IsForeground();
        } else if (FNext == FCommands.size()) {
            Finish();
        } else if (Execute(FCommands[FNext])) {
            ++FNext;
            FWaitingSince = 0;
        }
    } catch (const std::exception& error) {
        Fail(Utf8Decode(error.what()));
    }
    FTicking = false;
}

bool TPlayer::IsForeground() {
    const HWND window = FGallery.GetHandle();
    if (GetForegroundWindow() == window) {
        FWaitingSince = 0;
        return true;
    }
    if (GetTickCount64() - FWaitingSince > kForegroundMilliseconds)
        throw EInvalidOperation(u"the gallery did not get into the foreground, where input goes");
    SetForegroundWindow(window);
    return false;
}

void TPlayer::Fail(const String& problem) {
    if (FFailed)
        return;
    FFailed = true;
    FTimer.SetEnabled(false);
    const int line = FNext < FCommands.size() ? FCommands[FNext].Line : 0;
    WriteError(FScriptFile + u"(" + IntToStr(line) + u"): " + problem);
    try {
        Shoot(u"failure");
    } catch (const std::exception& error) {
        WriteError(Utf8Decode(error.what()));
    }
    TheApplication().Terminate();
}

void TPlayer::Finish() {
    FTimer.SetEnabled(false);
    WriteOutput(FScriptFile + u": " + IntToStr(FCommands.size()) + u" commands played, " + IntToStr(FShots) +
                u" pictures taken");
    TheApplication().Terminate();
}

// Commands

bool TPlayer::Execute(const TScriptCommand& command) {
    switch (command.Action) {
    case TScriptAction::Click:
        QueueClick(command);
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
        QueuePosition(FLastPoint, FHeld);
        return true;
    case TScriptAction::Release:
        FHeld.clear();
        Queue(KeyUpInputs(command.Held));
        return true;
    case TScriptAction::MouseMove:
    case TScriptAction::MouseDown:
        QueuePosition(FindPoint(command.Target), FHeld);
        if (command.Action == TScriptAction::MouseDown)
            Queue(MouseButtonInputs(command.Button, true));
        return true;
    case TScriptAction::MouseUp:
        QueuePosition(FLastPoint, FHeld);
        Queue(MouseButtonInputs(command.Button, false));
        return true;
    case TScriptAction::Wheel:
        QueuePosition(FindPoint(command.Target), {});
        Queue(WheelInputs(command.Count));
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
    if (there && keysDown)
        return true;
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

void TPlayer::QueueClick(const TScriptCommand& command) {
    const TPoint point = FindPoint(command.Target);
    QueuePosition(point, command.Held);
    if (command.Double) {
        // At once, so that it stays a double click however slow the machine is.
        TInputs inputs;
        for (const bool down : {true, false, true, false}) {
            const TInputs button = MouseButtonInputs(command.Button, down);
            inputs.insert(inputs.end(), button.begin(), button.end());
        }
        Queue(std::move(inputs));
    } else {
        // One after the other: what the press brings about may take time and may ask for the state of a key.
        Queue(MouseButtonInputs(command.Button, true));
        QueuePosition(point, command.Held);
        Queue(MouseButtonInputs(command.Button, false));
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
    const auto* control = As<TWinControl>(FindNamed(name));
    return control && control->HandleAllocated() && IsWindowVisible(control->GetHandle());
}

void TPlayer::Set(const TScriptCommand& command) {
    WriteRow(FindProperty(command.Path), command.Text);
}

void TPlayer::Shoot(const String& name) {
    if (FShotsFolder.empty())
        return;
    std::filesystem::create_directories(std::filesystem::path(FShotsFolder));
    String number = IntToStr(++FShots);
    if (number.size() < 2)
        number.insert(0, 1, u'0');
    CaptureScreen(ScreenRect(FGallery))->SaveToPng(FShotsFolder + u"\\" + number + u"-" + name + u".png");
}

// Names

TPersistent* TPlayer::FindNamed(StringView name) const {
    if (SameText(name, u"Popup"))
        return FindPopup();
    if (SameText(name, u"Hint"))
        return FindControl(FindWindowW(L"THintWindow", nullptr));
    return FGallery.FindByName(name);
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

TPoint TPlayer::FindPoint(const TScriptTarget& target) {
    const TRect place = FindPlace(target);
    if (target.At)
        return FLastPoint = {place.Left + target.At->X, place.Top + target.At->Y};
    TPoint point{(place.Left + place.Right) / 2, (place.Top + place.Bottom) / 2};
    // Two quick clicks on one spot would count as a double click.
    if (point == FLastPoint)
        point.X += GetSystemMetrics(SM_CXDOUBLECLK);
    return FLastPoint = point;
}

} // namespace gallery
