// How fast text forms are read and written, beside two limits measured in the same run: counting the line ends of the
// same bytes, and decoding all of them to UTF-16. Ends with 1 when a form does not come back byte for byte.

#include "framework/system/strings.h"
#include "framework/system/textform.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <random>

using namespace framework;

namespace {

constexpr std::size_t WantedSize = 10'000'000;
constexpr int Rounds = 7;

// The best of several rounds, in seconds.
template <class Work>
double Time(Work work) {
    double best = 1e9;
    for (int round = 0; round < Rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

void Start(TFormBuilder& builder) {
    builder.BeginObject(TFormObjectKind::Object, u"MainForm", u"TMainForm");
}

std::string End(TFormBuilder& builder, const TFormLayout& layout = {}) {
    builder.EndObject();
    return WriteTextForm(builder.Finish(), layout);
}

void Integer(TFormBuilder& builder, StringView name, std::int64_t value) {
    builder.Property(name);
    builder.Integer(value);
}

void Text(TFormBuilder& builder, StringView name, StringView value) {
    builder.Property(name);
    builder.Text(value);
}

// Labels and edits by turns on panels of twenty, with now and then a list, a set, a collection, as designers leave
// them.
std::string ManyObjects() {
    std::mt19937 random(20240601);
    TFormBuilder builder;
    Start(builder);
    std::size_t number = 0;
    // Some 190 bytes an object, counted on the result.
    while (number < WantedSize / 190) {
        builder.BeginObject(TFormObjectKind::Object, u"Panel" + Utf8Decode(std::to_string(++number)), u"TPanel");
        Integer(builder, u"Left", static_cast<int>(random() % 2000));
        builder.Property(u"Columns");
        builder.BeginCollection();
        for (int i = 0; i < 3; ++i) {
            builder.BeginItem();
            Text(builder, u"Title.Caption", u"Kolumna zażółcona");
            builder.EndItem();
        }
        builder.EndCollection();
        builder.Property(u"Lines.Strings");
        builder.BeginList();
        builder.Text(u"select NAME, PRICE, QUANTITY from ARTICLE where NAME like :NAME and PRICE > 0 order by NAME");
        builder.Text(u"the second line");
        builder.EndList();
        for (int i = 0; i < 20; ++i) {
            const bool isEdit = i % 2 == 0;
            const String name = (isEdit ? u"Edit" : u"Label") + Utf8Decode(std::to_string(++number));
            builder.BeginObject(TFormObjectKind::Object, name, isEdit ? u"TEdit" : u"TLabel");
            Integer(builder, u"Left", static_cast<int>(random() % 2000));
            Integer(builder, u"Top", static_cast<int>(random() % 2000) - 100);
            Integer(builder, u"Width", 121);
            Integer(builder, u"Height", 21);
            if (isEdit) {
                builder.Property(u"Anchors");
                builder.BeginSet();
                builder.Identifier(u"akLeft");
                builder.Identifier(u"akTop");
                builder.EndSet();
                Integer(builder, u"TabOrder", i);
                builder.Property(u"OnChange");
                builder.Identifier(name + u"Change");
            } else {
                Text(builder, u"Caption", i % 3 == 0 ? u"Ilość &sztuk" : u"Customer's name");
                builder.Property(u"Font.Height");
                builder.Float(1.5);
                builder.Property(u"ParentFont");
                builder.Identifier(u"False");
            }
            builder.EndObject();
        }
        builder.EndObject();
    }
    return End(builder);
}

std::string OneString() {
    String text;
    while (text.size() < WantedSize)
        text += u"Every good form knows where its labels stand, and why. ";
    TFormBuilder builder;
    Start(builder);
    Text(builder, u"Lines", text);
    return End(builder);
}

std::string OneStringBeyondAscii() {
    String text;
    while (text.size() < WantedSize / 2)
        text += u"Zażółć gęślą jaźń, powiedział żółw do łosia. ";
    TFormBuilder builder;
    Start(builder);
    Text(builder, u"Lines", text);
    return End(builder, {TFormLineEnd::CrLf, false, true, false});
}

std::string OneBinary() {
    std::vector<std::uint8_t> bytes(WantedSize / 2);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
    TFormBuilder builder;
    Start(builder);
    builder.Property(u"Picture.Data");
    builder.Binary(bytes);
    return End(builder);
}

std::string ManyFloats() {
    std::mt19937 random(20240602);
    TFormBuilder builder;
    Start(builder);
    builder.Property(u"Values");
    builder.BeginList();
    for (std::size_t i = 0; i < WantedSize / 27; ++i)
        builder.Float(static_cast<double>(random()) / 1024);
    builder.EndList();
    return End(builder);
}

bool Measure(const char* name, const std::string& text) {
    const double megabytes = static_cast<double>(text.size()) / 1e6;
    std::ptrdiff_t lines = 0;
    std::size_t units = 0;
    TFormDocument document;
    std::string written;
    const double count = Time([&] { lines = std::count(text.begin(), text.end(), '\n'); });
    const double decode = Time([&] { units = Utf8Decode(text).size(); });
    const double parse = Time([&] { document = ParseTextForm(text); });
    const double write = Time([&] { written = WriteTextForm(document, document.Layout()); });
    const bool same = written == text;
    std::printf("%-22s %5.1f MB %7td lines %9zu units | count %6.0f  decode %5.0f  parse %5.0f  write %5.0f MB/s"
                " | parse takes %4.1f x decode | %s\n",
                name, megabytes, lines, units, megabytes / count, megabytes / decode, megabytes / parse,
                megabytes / write, parse / decode, same ? "same bytes" : "DIFFERENT BYTES");
    return same;
}

} // namespace

int main() {
    bool same = Measure("many small objects", ManyObjects());
    same = Measure("one string", OneString()) && same;
    same = Measure("one string, UTF-8", OneStringBeyondAscii()) && same;
    same = Measure("one binary block", OneBinary()) && same;
    same = Measure("many floats", ManyFloats()) && same;
    return same ? 0 : 1;
}
