#pragma once

// Values as databases write them in texts, and the types that SQLite tables declare.

#include "framework/db/datavalues.h"

#include <optional>

namespace framework {

/// A whole number of digits with "-" in front of a negative one; false for anything else and beyond 64 bits.
bool TryParseWhole(std::string_view text, std::int64_t& value);
/// A float with "." as separator, or NaN, Infinity, -Infinity.
bool TryParseDouble(std::string_view text, double& value);
/// For adDBDate 2024-12-31; for adDBTime 23:59, with seconds and up to seven digits of them if they are there; for
/// adDBTimeStamp a date, and behind a blank or T a time if it is there.
bool TryParseMoment(std::string_view text, DataTypeEnum type, TMoment& value);

/// As TryParseMoment reads it, without a fraction of the seconds if that is zero.
String MomentText(TMoment value, DataTypeEnum type);
/// The same with exactly three digits of the seconds in all but dates.
String MomentTextWithMilliSeconds(TMoment value, DataTypeEnum type);

/// What moments are made of.
struct TMomentParts {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;
    int Ticks = 0; ///< of 100 nanoseconds
};
TMomentParts PartsOf(TMoment value);
/// The moment of these parts; false for what no calendar or clock has, and outside the years 1 to 9999.
bool TryMakeMoment(const TMomentParts& parts, TMoment& value);

/// The type that a declaration such as "decimal(12, 2)" or "UNSIGNED BIG INT" means, with its size, precision and
/// scale; the other fields stay. Words that say nothing leave a text of any length. `info` keeps its type without a
/// declaration.
void ApplyDeclaredType(StringView declaration, TColumnInfo& info);

/// The most special type that holds these texts as they are: adBigInt, adDouble, adDBDate, adDBTimeStamp, or a text.
/// Numbers must be written as a program writes them, so 007 stays a text.
class TTextJudge {
public:
    void Add(StringView text);
    DataTypeEnum GetType() const;

private:
    bool FAny = false;
    bool FWhole = true;
    bool FFloat = true;
    bool FDate = true;
    bool FTimeStamp = true;
};

} // namespace framework
