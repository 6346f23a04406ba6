#pragma once

// Plays an input script on the gallery: real input for real windows, one step at a time, each when the messages of the
// one before have been handled. Places come from the components themselves, by name, so scripts know no coordinates.

#include "framework/windows/timer.h"
#include "gallery/inspector_rules.h"
#include "gallery/mainform.h"
#include "gallery/messageboxview.h"
#include "gallery/playerinput.h"

#include <deque>

namespace gallery {

class TPlayer {
public:
    /// `shotsFolder` receives the pictures, numbered; without one none are taken.
    TPlayer(TGalleryForm& gallery, const String& shotsFolder);

    /// Adds a script to those that are played, after the page with this index was shown, if one is given. EScriptError
    /// for a bad script.
    void Add(const String& scriptFile, std::optional<int> page);
    /// Plays as soon as the gallery is in the foreground, and ends the program after the last command, or after the
    /// first that fails.
    void Start();
    /// Ends the play; the words are told with the line of the script that is being played.
    void Fail(const String& problem);
    /// 0 when every command was carried out and every expectation held, else 1.
    int ExitCode() const { return FFailed ? 1 : 0; }

private:
    struct TScript {
        String FileName;
        std::optional<int> Page;
        std::vector<TScriptCommand> Commands;
    };

    void Tick();
    /// True once the gallery is in the foreground and shows the page.
    bool Begin(const TScript& script);
    void End(const TScript& script);
    /// True once the command is done; false to be called again at the next tick.
    bool Execute(const TScriptCommand& command);
    /// The same, but EComponentError when something that the command names is not there.
    bool Try(const TScriptCommand& command);
    void QueueClick(const TScriptCommand& command, TPoint point);
    void Queue(TInputs inputs);
    /// Moves the pointer there with the keys held down, and waits until the system agrees to both.
    void QueuePosition(TPoint point, const std::vector<std::uint16_t>& held);
    bool InPosition(TPoint point, const std::vector<std::uint16_t>& held);
    /// True when the time since the first such call for the command is over.
    bool TimeIsUp(int milliseconds);
    bool Shows(StringView name) const;
    bool Holds(const TScriptCommand& command, int milliseconds);
    void Set(const TScriptCommand& command);
    void Shoot(const String& name);
    void Finish();
    /// "file(line): " of the command that was begun last.
    String Place() const;

    /// The form beside the gallery and its page: the last one that shows or, failing that, the last one.
    TCustomForm* FindPopup() const;
    /// Null when there is none. "Popup", "Hint" and "MessageBox" are the ones on the screen.
    TPersistent* FindNamed(StringView name) const;
    TPersistent& FindObject(StringView name) const;
    TInspectorRow FindProperty(StringView path) const;
    /// The place of a target on the screen, in pixels.
    TRect FindPlace(const TScriptTarget& target) const;
    TPoint FindPoint(const TScriptTarget& target) const;

    TGalleryForm& FGallery;
    mutable TMessageBoxView FMessageBox;
    String FShotsFolder;
    std::vector<TScript> FScripts;
    std::size_t FScript = 0; // the one that is played
    std::size_t FNext = 0;   // of its commands
    int FLine = 0;           // of the command that was begun last; what it brings about may come later
    // What still belongs to the last command, one step a tick; a step that answers false is tried again.
    std::deque<std::function<bool()>> FPending;
    TTimer FTimer;
    ULONGLONG FWaitingSince = 0;      // 0: not waiting
    ULONGLONG FSteadySince = 0;       // since when the pointer is where it belongs; 0: it is not
    TPoint FLastPoint;                // of the pointer
    std::vector<std::uint16_t> FHeld; // keys between hold and release
    int FShots = 0;
    bool FStarted = false; // the script that is played
    bool FTicking = false;
    bool FFailed = false;
};

} // namespace gallery
