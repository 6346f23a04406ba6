#pragma once

// The language of input scripts, one command a line:
//
//     # a remark
//     click NameEdit                         the middle of a control, by its name
//     click NameEdit at 10,5                 a point of it, from its left upper corner
//     click Popup key 3 with Shift           a part of it, by the words that the control knows, keys held down
//     click Inspector row Wymagany double    also: right, middle
//     type "Zażółć gęślą jaźń"               a quote inside is doubled
//     key Shift+Tab times 2
//     hold Shift                             until: release Shift
//     mouse move OkButton                    also: mouse down OkButton, mouse up
//     wheel Inspector -3                     notches, away from the person when positive
//     set MainForm.Width = 1000
//     wait NameEdit.Text = "Jan" within 5000 milliseconds; 3000 when not said
//     wait for Popup                         until it shows; also Hint, MessageBox and any control
//     expect MessageBox.Text contains "date" answer it with a key: Enter, Esc
//     expect NameEdit.Text = "Jan"           also: <> and contains
//     shot filled                            a picture
//
// Parsing knows nothing of windows; the player carries the commands out.

#include "framework/system/exceptions.h"

#include <optional>
#include <string_view>
#include <vector>

namespace gallery {
using namespace framework;

/// A script that cannot be read. The message reads "file(line): problem".
class EScriptError : public Exception {
public:
    EScriptError(StringView fileName, int line, StringView problem);
};

enum class TScriptAction {
    Click,
    Type,
    Key,
    Hold,
    Release,
    MouseMove,
    MouseDown,
    MouseUp,
    Wheel,
    Set,
    Wait,
    Expect,
    Shot
};
enum class TScriptButton { Left, Right, Middle };
enum class TScriptComparison { Equal, Different, Contains, Shows };

/// A key by its virtual key number, with the keys held down meanwhile.
struct TScriptKey {
    std::uint16_t Key = 0;
    std::vector<std::uint16_t> Held;
    friend bool operator==(const TScriptKey&, const TScriptKey&) = default;
};

struct TScriptTarget {
    String Name;
    std::vector<String> Part; ///< words that the control understands; empty for the whole of it
    std::optional<TPoint> At; ///< in pixels from the left upper corner of the part
    friend bool operator==(const TScriptTarget&, const TScriptTarget&) = default;
};

inline constexpr int ScriptWaitMilliseconds = 3000;

struct TScriptCommand {
    int Line = 0;
    TScriptAction Action = TScriptAction::Click;
    TScriptTarget Target; ///< Click, MouseMove, MouseDown, Wheel
    TScriptButton Button = TScriptButton::Left;
    bool Double = false;
    std::vector<std::uint16_t> Held; ///< keys held down during a Click, or from Hold to Release
    TScriptKey Key;                  ///< Key
    int Count = 1;                   ///< times of a Key, notches of a Wheel
    String Path;                     ///< "Name.Property" of Set, Wait and Expect, "Name" of what Shows
    TScriptComparison Comparison = TScriptComparison::Equal;
    String Text;                               ///< what to type, the value, the name of a Shot
    int Milliseconds = ScriptWaitMilliseconds; ///< Wait
};

/// The commands of a script in UTF-8. `fileName` is for messages. EScriptError for the first line that makes no sense.
std::vector<TScriptCommand> ParseScript(std::string_view bytes, StringView fileName);

/// A key as scripts name it: "Ctrl+Shift+F4". Nothing for a name that is no key.
std::optional<TScriptKey> ParseKey(StringView name);
/// The script's name of a virtual key, for messages; its number when it has none.
String KeyName(std::uint16_t key);

} // namespace gallery
