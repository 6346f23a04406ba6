#include "foundation/Hintinside_rules.h"

namespace ZOR {

namespace {

constexpr int BackgroundInset = 1;
constexpr int TextInset = 2;

TRect Inset(const TRect& client, int pixels) {
    const TRect inner = client.Inflated(-pixels, -pixels);
    return inner.IsEmpty() ? TRect{} : inner;
}

} // namespace

StringView HintInsideText(const THintInside& field) {
    if (!field.Unfocused || !field.ShowHintInside || !field.TextEmpty)
        return {};
    return field.LabelHint.empty() ? field.Hint : field.LabelHint;
}

THintInsidePlace HintInsidePlace(const TRect& client) {
    return {Inset(client, BackgroundInset), Inset(client, TextInset)};
}

} // namespace ZOR
