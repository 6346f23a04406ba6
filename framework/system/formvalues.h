#pragma once

// Plain values of text forms as published properties hold them: everything but objects and events.

#include "framework/system/published.h"
#include "framework/system/textform.h"

namespace framework {

/// Sets a property to the value of a form. A value that does not fit raises EPropertyError, whose message may begin
/// with "TClass.Property: "; what the setter raises comes through. `place` is moved to an element while it is read.
void ReadFormValue(TPersistent& object, const TPropInfo& property, const TFormValue& value, TFormPlace& place);

/// Writes the value of a property behind the name that the builder has been given.
void WriteFormValue(TFormBuilder& builder, const TPersistent& object, const TPropInfo& property);

} // namespace framework
