#pragma once

// Locales under which dates are tested, as the system's formats come to the program.

#include "framework/system/formatsettings.h"

#include <vector>

namespace datelocales {

using framework::TFormatSettings;

inline TFormatSettings YearFirst() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'-';
    settings.ShortDateFormat = u"yyyy-MM-dd";
    settings.ShortTimeFormat = u"hh:mm";
    settings.LongTimeFormat = u"hh:mm:ss";
    settings.TimeAMString.clear();
    settings.TimePMString.clear();
    settings.ShortMonthNames = {u"sty", u"lut", u"mar", u"kwi", u"maj", u"cze",
                                u"lip", u"sie", u"wrz", u"paź", u"lis", u"gru"};
    settings.LongMonthNames = {u"styczeń", u"luty",     u"marzec",   u"kwiecień",    u"maj",      u"czerwiec",
                               u"lipiec",  u"sierpień", u"wrzesień", u"październik", u"listopad", u"grudzień"};
    return settings;
}

inline TFormatSettings DayFirst() {
    TFormatSettings settings;
    settings.DecimalSeparator = u',';
    settings.DateSeparator = u'.';
    settings.ShortDateFormat = u"d.MM.yyyy";
    settings.ShortTimeFormat = u"hh:mm";
    settings.LongTimeFormat = u"hh:mm:ss";
    settings.ShortMonthNames[2] = u"Mrz.";
    settings.LongMonthNames[2] = u"März";
    return settings;
}

inline TFormatSettings MonthFirst() {
    TFormatSettings settings;
    settings.ShortDateFormat = u"M/d/yyyy";
    settings.ShortTimeFormat = u"h:mm AMPM";
    settings.LongTimeFormat = u"h:mm:ss AMPM";
    return settings;
}

/// Blanks beside the separators, one behind the last part, points in the names of months and in times.
inline TFormatSettings Crowded() {
    TFormatSettings settings;
    settings.DateSeparator = u'.';
    settings.TimeSeparator = u'.';
    settings.ShortDateFormat = u"d. M. yyyy.";
    settings.ShortTimeFormat = u"h:mm";
    for (auto& name : settings.ShortMonthNames)
        name += u'.';
    return settings;
}

inline std::vector<TFormatSettings> All() {
    return {YearFirst(), DayFirst(), MonthFirst(), Crowded()};
}

} // namespace datelocales
