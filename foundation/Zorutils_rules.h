#pragma once

// The requirement state of a field and the frame that shows it: which colour, which rings, and when the native border
// is left alone. A one-pixel frame tells at a glance what must be filled in and what is wrong.

#include "framework/system/types.h"

#include <array>
#include <optional>

namespace ZOR {
using namespace framework;

/// What a field asks of the person who fills it in.
enum TWymagany {
    wNone,        ///< nothing
    wRequired,    ///< must be filled in
    wRecommended, ///< should be filled in
    wError,       ///< holds something wrong; passes when the field is left in order
};

/// The published names, by ordinal.
inline constexpr std::array<StringView, 4> WymaganyNames{u"wNone", u"wRequired", u"wRecommended", u"wError"};

/// The published name of a state; empty for an ordinal that is none.
StringView WymaganyName(TWymagany state);
/// The state of a name, letter case included; nothing for any other text.
std::optional<TWymagany> WymaganyFromName(StringView name);

inline constexpr TColor DefaultRequiredColor = 0xDD9746;    ///< a medium blue
inline constexpr TColor DefaultRecommendedColor = 0x46C265; ///< a green
inline constexpr TColor DefaultErrorColor = 0x0000FF;       ///< red
inline constexpr TColor FlatFrameColor = 0x808080;          ///< grey, where a flat field asks for nothing

/// The colours of the states, as TBorderColors publishes them.
struct TFrameColors {
    TColor Required = DefaultRequiredColor;
    TColor Recommended = DefaultRecommendedColor;
    TColor Error = DefaultErrorColor;
    friend bool operator==(const TFrameColors&, const TFrameColors&) = default;
};

/// The colour for a published state name: the grey of the flat frame for wNone and for names it does not know.
/// Colours are passed on as stored; a system colour is not resolved.
TColor FrameColor(StringView stateName, const TFrameColors& colors);

/// What the painter gathers from a control. The state comes by its published name, so that any control that publishes
/// a property of that name can be framed, whatever its class.
struct TFrameRequest {
    StringView StateName;
    bool Ctl3D = true; ///< the native border is sunken
    TFrameColors Colors;
    TSize Size;                  ///< the window's outer extent in pixels
    bool ClearInnerRing = false; ///< also hide the inner line of the native border
};

/// What to draw: one-pixel outlines in window coordinates, from the outside inwards. An empty rectangle stands for "no
/// outline": GDI would turn an inverted one round and draw it.
struct TFrameDecision {
    bool Paint = false; ///< false: the native border stays and the framework paints it
    TColor Color = FlatFrameColor;
    TRect Outer; ///< in Color
    TRect Inner; ///< in the brush colour of the window's device context
    friend bool operator==(const TFrameDecision&, const TFrameDecision&) = default;
};

/// The frame of a control. Only a field that asks for nothing and has a sunken border keeps its native look; without
/// the sunken border such a field gets a grey line instead of the system's black one.
TFrameDecision DecideFrame(const TFrameRequest& request);

} // namespace ZOR
