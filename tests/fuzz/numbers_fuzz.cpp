// The bytes are a mask and a number, parted by a line end. Whatever they are, what was read is written so that it reads
// back as the same number, and masks of any shape are followed or ignored without harm.

#include "framework/system/exceptions.h"
#include "framework/system/numbers.h"
#include "framework/system/strings.h"
#include "framework/system/variants.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

using namespace framework;

namespace {

const TFormatSettings invariant;

void Demand(bool holds, const char* what, const String& text) {
    if (holds)
        return;
    std::fprintf(stderr, "%s: %s\n", what, Utf8Encode(text).c_str());
    std::abort();
}

void CheckFloat(const String& text) {
    Extended value = 0;
    if (!TryStrToFloat(text, value, invariant) || std::isnan(value))
        return;
    // Eighteen digits name a number closely enough to give the same eighteen digits again. At the very ends of the
    // range rounding may lead out of it.
    const String written = FloatToStrF(value, ffGeneral, 18, 0, invariant);
    Extended again = 0;
    if (std::fabs(value) < std::numeric_limits<Extended>::max() / 2 &&
        (value == 0 || std::fabs(value) > std::numeric_limits<Extended>::min())) {
        Demand(TryStrToFloat(written, again, invariant), "does not read back", written);
        Demand(FloatToStrF(again, ffGeneral, 18, 0, invariant) == written, "is not stable", written);
    }
    for (const TFloatFormat format : {ffExponent, ffFixed, ffNumber, ffCurrency}) {
        const String other = FloatToStrF(value, format, 18, 2, invariant);
        Demand(other != u"-0.00", "a zero with a sign", other);
    }
    double narrow = 0;
    if (TryStrToFloat(text, narrow, invariant))
        Demand(std::isinf(value) || std::fabs(value) <= std::numeric_limits<double>::max() * 1.0000001L,
               "a double beyond its range", text);
}

void CheckExactKinds(const String& text) {
    std::int64_t whole = 0;
    if (TryStrToInt64(text, whole))
        Demand(StrToInt64(IntToStr(whole)) == whole, "is another integer", text);
    Currency money;
    if (TryStrToCurr(text, money, invariant))
        Demand(StrToCurr(CurrToStr(money, invariant), invariant) == money, "is another amount", text);
    try {
        const TDateTime date = Variant(text).AsDate(invariant);
        Variant::FromDate(date).AsString(invariant);
    } catch (const EVariantError&) {
        return;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const String bytes = Utf8Decode({reinterpret_cast<const char*>(data), size});
    const std::size_t border = std::min(bytes.find(u'\n'), bytes.size());
    const String mask = bytes.substr(0, border);
    const String text = bytes.substr(std::min(border + 1, bytes.size()));
    CheckFloat(text);
    CheckExactKinds(text);
    const Extended value = StrToFloatDef(text, -1234.5678L, invariant);
    FormatFloat(mask, value, invariant);
    FormatFloat(mask, 0, invariant);
    FormatCurr(mask, StrToCurrDef(text, Currency::FromUnits(std::numeric_limits<std::int64_t>::min()), invariant),
               invariant);
    return 0;
}
