// Texts of databases, queries and connection strings: whatever they hold, reading ends, and what is read as a moment or
// a number reads the same when it is written again.

#include "framework/db/connectionstring.h"
#include "framework/db/datatexts.h"
#include "framework/db/sqlaliases.h"
#include "framework/system/strings.h"

#include <cstdlib>

using namespace framework;

namespace {

void Require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const DataTypeEnum type : {adDBDate, adDBTime, adDBTimeStamp}) {
        TMoment moment;
        TMoment again;
        if (!TryParseMoment(bytes, type, moment))
            continue;
        Require(TryParseMoment(Utf8Encode(MomentText(moment, type)), type, again) && again == moment);
        const TMomentParts parts = PartsOf(moment);
        Require(TryMakeMoment(parts, again) && again == moment);
        if (type == adDBDate)
            Require(TMoment::FromDateTime(EncodeDate(parts.Year, parts.Month, parts.Day)) == moment);
    }
    TNumeric number;
    TNumeric again;
    if (TryParseNumeric(bytes, number))
        Require(TryParseNumeric(number.AsText(), again) && again == number);
    std::int64_t whole = 0;
    TryParseWhole(bytes, whole);

    const String text = Utf8Decode(bytes);
    Require(!TryParseNumeric(text, number) || IsNumericText(text));
    TTextJudge judge;
    judge.Add(text);
    judge.GetType();
    TColumnInfo column;
    ApplyDeclaredType(text, column);
    AliasesIn(text);
    for (const auto& [name, count] : TablesIn(text).Counts)
        Require(count > 0);
    const String complete = CompleteConnectionString(text);
    Require(complete.starts_with(text));
    WithoutPasswords(text, text);
    TGUID guid;
    if (TryStringToGUID(text, guid))
        Require(StringToGUID(GUIDToString(guid)) == guid);
    return 0;
}
