#pragma once

// The running program: its message loop, its forms, its screen, and what becomes of exceptions that nobody caught.

#include "framework/windows/forms.h"

namespace framework {

using TExceptionEvent = std::function<void(TObject* Sender, const std::exception& E)>;
using TMessageEvent = std::function<void(MSG& Msg, bool& Handled)>;
using TIdleEvent = std::function<void(TObject* Sender, bool& Done)>;

class TApplication : public TComponent {
    FRAMEWORK_CLASS(TApplication)

public:
    FRAMEWORK_PROPERTY(String, Title, GetTitle, SetTitle);
    FRAMEWORK_READ_PROPERTY(TCustomForm*, MainForm, GetMainForm);
    FRAMEWORK_READ_PROPERTY(bool, Terminated, GetTerminated);
    FRAMEWORK_PROPERTY(bool, ShowHint, GetShowHint, SetShowHint);
    FRAMEWORK_PROPERTY(int, HintPause, GetHintPause, SetHintPause);
    FRAMEWORK_PROPERTY(int, HintHidePause, GetHintHidePause, SetHintHidePause);

    /// Takes the place of the message box for exceptions that left a handler.
    TExceptionEvent OnException;
    /// Sees every posted message before it is dispatched.
    TMessageEvent OnMessage;
    TIdleEvent OnIdle;
    /// The program came to the foreground, or another one did.
    TNotifyEvent OnActivate;
    TNotifyEvent OnDeactivate;
    /// A package was loaded or is about to leave the process: the palette's pages are other ones, and TClassInfo
    /// pointers taken from them before may lead nowhere afterwards.
    TNotifyEvent OnPaletteChange;

    TApplication();

    /// Reads the user's locale into FormatSettings and prepares the common controls. Called once, first.
    void Initialize();
    /// Makes `form` the main one: closing it ends Run.
    void SetMainForm(TCustomForm* form);
    TCustomForm* GetMainForm() const { return FMainForm; }
    /// Shows the main form and handles messages until it is closed or Terminate is called.
    void Run();
    void Terminate();
    bool GetTerminated() const { return FTerminated; }
    /// Handles all messages that wait.
    void ProcessMessages();
    /// Handles one message, or waits for one.
    void HandleMessage();
    /// To be called from within a catch block: tells OnException or the user; EAbort stays silent.
    void HandleException(TObject* sender);
    void ShowException(const std::exception& error);
    /// MessageBoxW above the active form. `flags` are MB_...; the answer is ID....
    int MessageDialog(const String& text, const String& caption, UINT flags = MB_OK);

    const String& GetTitle() const { return FTitle; }
    void SetTitle(const String& value) { FTitle = value; }
    bool GetShowHint() const { return FShowHint; }
    void SetShowHint(bool value) { FShowHint = value; }
    /// Milliseconds the mouse rests before a hint shows, and after which it goes.
    int GetHintPause() const { return FHintPause; }
    void SetHintPause(int value) { FHintPause = value; }
    int GetHintHidePause() const { return FHintHidePause; }
    void SetHintHidePause(int value) { FHintHidePause = value; }

    /// Frees a window that died inside its own native procedure, once that has ended.
    void DestroyLater(HWND window);
    void DisposeDestroyedWindows();
    /// Frees a component once the handlers that run now have ended, whether or not they let messages through.
    void QueueRelease(TComponent* component);

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TCustomForm;
    friend TApplication& TheApplication();

    struct TReleased {
        TComponent* Component;
        int Depth; // of the handlers that were running when it was released
    };

    bool ProcessMessage();
    bool IsKeyMessage(MSG& message);
    void Idle();
    void Report(TObject* sender, const std::exception& error);
    void SetActive(bool value);
    void FreeComponents();

    TCustomForm* FMainForm = nullptr;
    std::vector<HWND> FDyingWindows;
    std::vector<TReleased> FReleased;
    String FTitle;
    int FHintPause = 500;
    int FHintHidePause = 2500;
    bool FTerminated = false;
    bool FShowHint = true;
    bool FDisposing = false;
    bool FActive = false;
};

/// What the program knows of its screen and forms.
class TScreen : public TComponent {
    FRAMEWORK_CLASS(TScreen)

public:
    FRAMEWORK_READ_PROPERTY(int, Width, GetWidth);
    FRAMEWORK_READ_PROPERTY(int, Height, GetHeight);
    FRAMEWORK_READ_PROPERTY(TCustomForm*, ActiveForm, GetActiveForm);
    FRAMEWORK_READ_PROPERTY(TWinControl*, ActiveControl, GetActiveControl);
    FRAMEWORK_READ_PROPERTY(int, FormCount, GetFormCount);
    FRAMEWORK_READ_PROPERTY(TCustomForm*, Forms[], GetForm);
    FRAMEWORK_READ_PROPERTY(int, PixelsPerInch, GetPixelsPerInch);
    FRAMEWORK_PROPERTY(TCursor, Cursor, GetCursor, SetCursor);

    /// The active control or the active form changed.
    TNotifyEvent OnActiveControlChange;
    TNotifyEvent OnActiveFormChange;

    TScreen();

    int GetWidth() const;  ///< of the primary monitor, in pixels
    int GetHeight() const; ///< of the primary monitor, in pixels
    int GetPixelsPerInch() const;
    /// The resolution of the monitor that holds most of a window.
    int GetPixelsPerInch(HWND window) const;
    /// The part of that monitor which the taskbar leaves free, in screen pixels.
    TRect GetWorkArea(const TRect& place) const;
    TCustomForm* GetActiveForm() const { return FActiveForm; }
    TWinControl* GetActiveControl() const { return FActiveControl; }
    int GetFormCount() const { return static_cast<int>(FForms.size()); }
    TCustomForm* GetForm(int index) const;
    TCursor GetCursor() const { return FCursor; }
    void SetCursor(TCursor value);
    HCURSOR CursorHandle(TCursor cursor) const;

protected:
    void Notification(TComponent* component, TOperation operation) override;

private:
    friend class TCustomForm;

    void SetActive(TCustomForm* form, TWinControl* control);

    std::vector<TCustomForm*> FForms;
    TCustomForm* FActiveForm = nullptr;
    TWinControl* FActiveControl = nullptr;
    TCursor FCursor = crDefault;
};

/// The one application and screen, created at first use. What the application owns is freed at the end of the program;
/// both themselves stay until the last, for forms that are static objects.
TApplication& TheApplication();
TScreen& TheScreen();

/// Performs a message of what has happened already, such as that the focus has gone: what a handler throws is reported
/// here (TApplication::HandleException), so that the others hear of it as well.
void Tell(TControl& control, UINT message, LPARAM lParam = 0);

#if FRAMEWORK_HAS_PROPERTIES
// The customary notation: Application->ProcessMessages(), Screen->ActiveForm.
struct TApplicationAccess {
    TApplication* operator->() const { return &TheApplication(); }
};
struct TScreenAccess {
    TScreen* operator->() const { return &TheScreen(); }
};
inline constexpr TApplicationAccess Application;
inline constexpr TScreenAccess Screen;
#endif

} // namespace framework
