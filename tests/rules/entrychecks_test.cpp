#include "gallery/entrychecks_rules.h"

#include "framework/system/strings.h"

#include <gtest/gtest.h>

namespace gallery {
namespace {

TEST(EntryChecks, AcceptWhatOfficesAccept) {
    const struct {
        bool (*IsValid)(StringView);
        const char16_t* Text;
        bool Expected;
    } rows[] = {
        {IsPostalCode, u"00-950", true},
        {IsPostalCode, u"00950", false},
        {IsPostalCode, u"00-95", false},
        {IsPostalCode, u"00-9505", false},
        {IsPostalCode, u"0O-950", false},
        {IsTaxNumber, u"526-104-08-28", true},
        {IsTaxNumber, u"5261040828", true},
        {IsTaxNumber, u"526-104-08-29", false},
        {IsTaxNumber, u"123-456-78-90", false}, // its check sum leaves a remainder of 10
        {IsTaxNumber, u"526104082", false},
        {IsTaxNumber, u"526-104-O8-28", false},
        {IsEmail, u"biuro@firma.pl", true},
        {IsEmail, u"a.b+c@poczta.firma.com", true},
        {IsEmail, u"biuro@\u017C\u00F3\u0142w.pl", true},
        {IsEmail, u"biuro(at)firma.pl", false},
        {IsEmail, u"@firma.pl", false},
        {IsEmail, u"biuro@firma", false},
        {IsEmail, u"biuro@firma.", false},
        {IsEmail, u"biuro@.pl", false},
        {IsEmail, u"biuro@firma.p", false},
        {IsEmail, u"a@b@firma.pl", false},
        {IsEmail, u"a b@firma.pl", false},
        {IsPhoneNumber, u"+48 22 555 66 77", true},
        {IsPhoneNumber, u"225556677", true},
        {IsPhoneNumber, u"22-555-66-7", false},
        {IsPhoneNumber, u"+4822555667", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.IsValid(row.Text), row.Expected) << Utf8Encode(row.Text);
}

} // namespace
} // namespace gallery
