#pragma once

// The requirement state of one control over its life: set by the program, put aside while the control is disabled,
// and, after an error, taken back when the person leaves the field in order.

#include "foundation/Zorutils_rules.h"

namespace ZOR {

/// Where controls differ. The defaults are the framed edit's behaviour.
struct TRequirementPolicy {
    /// A state other than wError that the program sets is what a later error goes back to. Without it only disabling
    /// remembers a state, so an error that ends leaves no frame, even on a field that was required before.
    bool SetterRemembers = true;
    /// An error on a text that is no longer empty ends when the field is left.
    bool ErrorEndsOnLeave = true;
    /// The same when the mouse leaves the field.
    bool ErrorEndsOnMouseLeave = true;
};

/// Edit, memo, float edit, spin float edit, combo boxes.
inline constexpr TRequirementPolicy EditRequirement{};
/// Mask edit, rich edit, list box, check box, check-list box, month calendar, spin edit: an error stays until the
/// program ends it. Ending it on leaving would turn a required field into one that asks for nothing.
inline constexpr TRequirementPolicy PlainRequirement{false, false, false};
/// Date edit and date-time picker: an error stays until the program or a corrected value ends it (see Restore).
inline constexpr TRequirementPolicy DateRequirement{true, false, false};

/// The state shown and the state to go back to. Every operation returns whether the frame must be painted again; how
/// a control paints it is its own matter.
class TRequirement {
public:
    constexpr explicit TRequirement(TRequirementPolicy policy = EditRequirement) : FPolicy(policy) {}

    TWymagany Current() const { return FCurrent; }
    /// What the end of an error, or enabling, goes back to. It is wError only after a disabling in error.
    TWymagany Saved() const { return FSaved; }

    /// The program sets the state.
    bool Set(TWymagany state);

    /// The person leaves the field, or the mouse does. An error on an empty text stays. An error that was put aside by
    /// disabling comes back as the state to go back to, so leaving does not end it: only the program can.
    bool Leave(bool textEmpty) { return EndError(FPolicy.ErrorEndsOnLeave, textEmpty); }
    bool MouseLeave(bool textEmpty) { return EndError(FPolicy.ErrorEndsOnMouseLeave, textEmpty); }

    /// The control's Enabled has changed to this value. Disabling puts a state aside and shows none, enabling brings it
    /// back. Disabling while no state is shown also brings a saved one back, so that a disabled control can show a
    /// frame; this is meant.
    bool SetEnabled(bool enabled);

    /// A value was found in order: back to the saved state, and to none where that is itself an error.
    bool Restore();

private:
    bool EndError(bool ends, bool textEmpty);
    bool Show(TWymagany state);

    TRequirementPolicy FPolicy;
    TWymagany FCurrent = wNone;
    TWymagany FSaved = wNone;
};

} // namespace ZOR
