#include "gallery/eventsignatures.h"

#include "framework/windows/forms.h"
#include "framework/windows/ownerdraw.h"
#include "framework/windows/updown.h"
#include "gallery/playerscript_rules.h"

#include <map>

namespace gallery {

namespace {

const TEventSignature notify(&SignatureOf<TNotifyEvent>);
const TEventSignature key(&SignatureOf<TKeyEvent>);
const TEventSignature keyPress(&SignatureOf<TKeyPressEvent>);
const TEventSignature mouse(&SignatureOf<TMouseEvent>);
const TEventSignature mouseMove(&SignatureOf<TMouseMoveEvent>);
const TEventSignature mouseWheel(&SignatureOf<TMouseWheelEvent>);
const TEventSignature close(&SignatureOf<TCloseEvent>);
const TEventSignature closeQuery(&SignatureOf<TCloseQueryEvent>);
const TEventSignature upDown(&SignatureOf<TUDClickEvent>);
const TEventSignature upDownChanging(&UnwatchedSignatureOf<TUDChangingEventEx>);
const TEventSignature drawItem(&UnwatchedSignatureOf<TDrawItemEvent>);
const TEventSignature measureItem(&UnwatchedSignatureOf<TMeasureItemEvent>);

std::map<std::type_index, TSignature> CollectSignatures() {
    std::map<std::type_index, TSignature> signatures;
    for (const TEventSignature* each = TEventSignature::First(); each; each = each->Next()) {
        const TSignature signature = each->Value()();
        signatures.emplace(signature.Type, signature);
    }
    return signatures;
}

} // namespace

const TSignature* FindSignature(std::type_index type) {
    static const std::map<std::type_index, TSignature> signatures = CollectSignatures();
    const auto found = signatures.find(type);
    return found == signatures.end() ? nullptr : &found->second;
}

String KeyText(WORD key) {
    return KeyName(key);
}

String CharacterText(char16_t character) {
    return character < u' ' ? u"#" + IntToStr(static_cast<int>(character)) : u"'" + String(1, character) + u"'";
}

String ButtonText(TMouseButton button) {
    constexpr const char16_t* kNames[] = {u"mbLeft", u"mbRight", u"mbMiddle"};
    return kNames[button];
}

String ShiftText(TShiftState shift) {
    static const TEnumInfo info{u"TShiftState",
                                {u"ssShift", u"ssAlt", u"ssCtrl", u"ssLeft", u"ssRight", u"ssMiddle", u"ssDouble"}};
    return shift.Empty() ? String() : SetToText(info, shift.Bits());
}

void TArgumentList::Add(const String& text, bool isNumber) {
    if (text.empty())
        return;
    if (!FText.empty())
        FText += isNumber && FEndsInNumber ? u',' : u' ';
    FText += text;
    FEndsInNumber = isNumber;
}

} // namespace gallery
