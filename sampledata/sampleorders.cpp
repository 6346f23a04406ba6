#include "sampledata/sampleorders.h"

#include "framework/system/numbers.h"
#include "framework/system/strings.h"

#include <random>

namespace sampleorders {

using namespace framework;

namespace {

using TRow = std::vector<TSqlParameter>;

struct TCountry {
    const char16_t* Code;
    std::vector<const char16_t*> FirstNames;
    std::vector<const char16_t*> Surnames;
    std::vector<const char16_t*> Cities;
    const char16_t* PhonePrefix;
};

const TCountry countries[] = {
    {u"PL",
     {u"Agnieszka", u"\u0141ukasz", u"Ma\u0142gorzata", u"Pawe\u0142", u"Gra\u017Cyna", u"Stanis\u0142aw", u"Zofia",
      u"W\u0142adys\u0142aw", u"Bo\u017Cena", u"Micha\u0142", u"J\u00F3zef", u"Karolina"},
     {u"W\u00F3jcik", u"Kami\u0144ska", u"D\u0105browski", u"Zieli\u0144ski", u"G\u00F3rska", u"\u017Bak",
      u"Jab\u0142o\u0144ski", u"Wi\u015Bniewska", u"Kr\u00F3l", u"St\u0119pie\u0144", u"Wr\u00F3blewski", u"Sikora",
      u"B\u0105k", u"Ma\u0107kowiak"},
     {u"Warszawa", u"Krak\u00F3w", u"\u0141\u00F3d\u017A", u"Wroc\u0142aw", u"Gda\u0144sk", u"Pozna\u0144",
      u"Cz\u0119stochowa", u"Zielona G\u00F3ra"},
     u"+48 "},
    {u"CZ",
     {u"Ji\u0159\u00ED", u"\u017Daneta", u"Ond\u0159ej", u"Bo\u017Eena", u"Luk\u00E1\u0161", u"Vlasta", u"Zden\u011Bk",
      u"Kate\u0159ina", u"V\u00E1clav", u"Ane\u017Eka"},
     {u"Nov\u00E1k", u"Svobodov\u00E1", u"Dvo\u0159\u00E1k", u"\u010Cern\u00E1", u"Proch\u00E1zka", u"Ku\u010Dera",
      u"H\u00E1jkov\u00E1", u"\u0160\u0165astn\u00FD", u"R\u016F\u017Ei\u010Dka", u"K\u0159\u00ED\u017E"},
     {u"Praha", u"Brno", u"Ostrava", u"Plze\u0148", u"\u010Cesk\u00E9 Bud\u011Bjovice", u"\u00DAst\u00ED nad Labem",
      u"T\u0159eb\u00ED\u010D"},
     u"+420 "},
    {u"DE",
     {u"J\u00F6rg", u"Ursula", u"G\u00FCnther", u"Bj\u00F6rn", u"K\u00E4the", u"S\u00F6ren", u"Renate", u"J\u00FCrgen",
      u"Heike"},
     {u"M\u00FCller", u"Gro\u00DF", u"Sch\u00E4fer", u"K\u00F6nig", u"Wei\u00DF", u"J\u00E4ger", u"Vo\u00DF",
      u"Schr\u00F6der", u"B\u00F6hm"},
     {u"M\u00FCnchen", u"K\u00F6ln", u"D\u00FCsseldorf", u"N\u00FCrnberg", u"G\u00F6rlitz", u"Saarbr\u00FCcken",
      u"Gie\u00DFen"},
     u"+49 "},
};

const char16_t* const goods[] = {u"Herbata",
                                 u"Kawa",
                                 u"M\u00F3d",
                                 u"Chl\u00E9b",
                                 u"S\u00FDr",
                                 u"K\u00E4se",
                                 u"\u0141oso\u015B",
                                 u"Pivo",
                                 u"W\u00FCrste",
                                 u"D\u017Cem",
                                 u"Ol\u0161ov\u00FD olej",
                                 u"Brezeln",
                                 u"\u017Burek",
                                 u"Kn\u00F6del",
                                 u"\u0106wik\u0142a",
                                 u"Okurky"};
const char16_t* const sorts[] = {u"ma\u0142y", u"velk\u00FD", u"extra",      u"Bio",           u"klassisch",
                                 u"premium",   u"zimowy",     u"letn\u00ED", u"s\u00FC\u00DF", u"domowy"};
const char16_t* const notes[] = {u"Prosz\u0119 dzwoni\u0107 przed dostaw\u0105",
                                 u"Doru\u010Dit do pr\u00E1ce",
                                 u"Bitte an der T\u00FCr klingeln",
                                 u"Zap\u0142ata przelewem",
                                 u"K\u0159ehk\u00E9!",
                                 u"Als Geschenk verpacken \U0001F381"};

/// The same sequence on every system, which the standard's distributions do not promise.
class TDice {
public:
    /// 0 to below `sides`.
    int Roll(int sides) { return static_cast<int>(FEngine() % static_cast<unsigned>(sides)); }
    bool Chance(int percent) { return Roll(100) < percent; }
    template <class TList>
    auto Pick(const TList& list) {
        return list[static_cast<std::size_t>(Roll(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937 FEngine{20240229};
};

TSqlParameter Whole(std::int64_t value) {
    return {value, adInteger};
}

/// Hundredths as an amount.
TSqlParameter Amount(std::int64_t hundredths) {
    return {TNumeric{hundredths, 2}, adNumeric};
}

TSqlParameter Text(String value) {
    return {std::move(value), adVarWChar};
}

TSqlParameter Moment(TDateTime value, DataTypeEnum type) {
    return {TMoment::FromDateTime(value), type};
}

/// A first day on which the house sold, and for how long it has.
const TDateTime firstDay = EncodeDate(2021, 1, 4);
constexpr int daysOfTrade = 1'400;

String MailName(StringView text) {
    String name;
    for (const char16_t unit : AnsiLowerCase(text)) {
        if (unit >= u'a' && unit <= u'z')
            name += unit;
    }
    return name;
}

TTable Customers(TDice& dice, StringView guidType) {
    TTable table{u"customers",
                 {{u"id", u"integer PRIMARY KEY"},
                  {u"guid", String(guidType) + u" NOT NULL"},
                  {u"name", u"varchar(60) NOT NULL"},
                  {u"city", u"varchar(40) NOT NULL"},
                  {u"country", u"varchar(2) NOT NULL"},
                  {u"phone", u"varchar(20)"},
                  {u"email", u"varchar(80)"},
                  {u"since", u"date NOT NULL"},
                  {u"credit", u"numeric(12,2)"},
                  {u"active", u"boolean NOT NULL"}},
                 {}};
    for (int id = 1; id <= customerCount; ++id) {
        const TCountry& country = countries[dice.Roll(100) < 60 ? 0 : dice.Roll(2) + 1];
        const String first = dice.Pick(country.FirstNames);
        const String surname = dice.Pick(country.Surnames);
        TGUID guid{static_cast<std::uint32_t>(dice.Roll(1 << 30)), static_cast<std::uint16_t>(id), 0x4000, {0x80}};
        for (std::size_t i = 1; i < guid.D4.size(); ++i)
            guid.D4[i] = static_cast<std::uint8_t>(dice.Roll(256));
        TRow row = {Whole(id),
                    {guid, adGUID},
                    Text(first + u" " + surname),
                    Text(dice.Pick(country.Cities)),
                    Text(country.Code)};
        row.push_back(dice.Chance(80) ? Text(country.PhonePrefix + IntToStr(600'000'000 + dice.Roll(99'999'999)))
                                      : TSqlParameter{});
        row.push_back(dice.Chance(65)
                          ? Text(MailName(first) + u"." + MailName(surname) + IntToStr(id) + u"@example.com")
                          : TSqlParameter{});
        row.push_back(Moment(firstDay - dice.Roll(4000), adDBDate));
        row.push_back(dice.Chance(70) ? Amount(dice.Roll(2'000) * 5'000) : TSqlParameter{});
        row.push_back({dice.Chance(90), adBoolean});
        table.Rows.push_back(std::move(row));
    }
    return table;
}

TTable Products(TDice& dice, std::vector<int>& prices) {
    TTable table{u"products",
                 {{u"id", u"integer PRIMARY KEY"},
                  {u"code", u"varchar(10) NOT NULL"},
                  {u"name", u"varchar(60) NOT NULL"},
                  {u"price", u"numeric(10,2) NOT NULL"},
                  {u"vat", u"numeric(4,1) NOT NULL"},
                  {u"weight", u"double precision"}},
                 {}};
    for (int id = 1; id <= productCount; ++id) {
        const auto kind = static_cast<std::size_t>(id - 1);
        const String name =
            String(goods[kind % std::size(goods)]) + u" " + sorts[kind / std::size(goods) % std::size(sorts)];
        prices.push_back(199 + dice.Roll(20'000));
        const String number = IntToStr(id);
        table.Rows.push_back(
            {Whole(id),
             Text(u"P" + StringOfChar(u'0', 4 - static_cast<int>(number.size())) + number),
             Text(name),
             Amount(prices.back()),
             {TNumeric{dice.Chance(70) ? 230 : 80, 1}, adNumeric},
             dice.Chance(85) ? TSqlParameter{(dice.Roll(400) + 1) / 16.0, adDouble} : TSqlParameter{}});
    }
    return table;
}

TTable Orders(TDice& dice) {
    TTable table{u"orders",
                 {{u"id", u"integer PRIMARY KEY"},
                  {u"customer_id", u"integer NOT NULL REFERENCES customers"},
                  {u"ordered", u"timestamp NOT NULL"},
                  {u"delivered", u"date"},
                  {u"paid", u"boolean NOT NULL"},
                  {u"note", u"text"}},
                 {}};
    for (int id = 1; id <= orderCount; ++id) {
        // In the order of their numbers, through the working hours of the days.
        const int daysSince = id * daysOfTrade / orderCount;
        const TDateTime day = firstDay + daysSince;
        const int hour = 8 + dice.Roll(10);
        const int minute = dice.Roll(60);
        const TDateTime ordered = day + EncodeTime(hour, minute, dice.Roll(60), 0);
        const bool delivered = id < orderCount - 200 && dice.Chance(95);
        table.Rows.push_back(
            {Whole(id),
             Whole(1 + dice.Roll(customerCount)),
             Moment(ordered, adDBTimeStamp),
             delivered ? Moment(day + 1 + dice.Roll(14), adDBDate) : TSqlParameter{},
             {delivered && dice.Chance(92), adBoolean},
             dice.Chance(12) ? TSqlParameter{String(dice.Pick(notes)), adLongVarWChar} : TSqlParameter{}});
    }
    return table;
}

/// In whole hundredths, a half away from zero. The discount is in tenths of a percent.
int GoodsAmount(int quantity, int price, int discount) {
    constexpr int whole = 1'000;
    return static_cast<int>((std::int64_t(quantity) * price * (whole - discount) + whole / 2) / whole);
}

/// Small orders pay for the way.
int ShippingAmount(int order, int goods) {
    constexpr int prices[] = {1'290, 1'590, 1'990};
    constexpr int freeFrom = 300'000;
    return goods >= freeFrom ? 0 : prices[order % 3];
}

/// Also gives the orders what their items cost, and how they are sent.
TTable Items(TDice& dice, const std::vector<int>& prices, TTable& orders) {
    orders.Columns.emplace_back(u"goods", u"numeric(12,2) NOT NULL");
    orders.Columns.emplace_back(u"shipping", u"numeric(8,2) NOT NULL");
    TTable table{u"items",
                 {{u"id", u"integer PRIMARY KEY"},
                  {u"order_id", u"integer NOT NULL REFERENCES orders"},
                  {u"product_id", u"integer NOT NULL REFERENCES products"},
                  {u"quantity", u"integer NOT NULL"},
                  {u"price", u"numeric(10,2) NOT NULL"},
                  {u"discount", u"numeric(4,1)"}},
                 {}};
    int id = 0;
    for (int order = 1; order <= orderCount; ++order) {
        int goods = 0;
        for (int count = 1 + dice.Roll(5); count > 0; --count) {
            const int product = dice.Roll(productCount);
            const int price = prices[static_cast<std::size_t>(product)];
            const int quantity = 1 + dice.Roll(24);
            const int discount = dice.Chance(20) ? 25 * (1 + dice.Roll(8)) : 0;
            goods += GoodsAmount(quantity, price, discount);
            table.Rows.push_back({Whole(++id), Whole(order), Whole(product + 1), Whole(quantity), Amount(price),
                                  discount ? TSqlParameter{TNumeric{discount, 1}, adNumeric} : TSqlParameter{}});
        }
        TRow& row = orders.Rows[static_cast<std::size_t>(order - 1)];
        row.push_back(Amount(goods));
        row.push_back(Amount(ShippingAmount(order, goods)));
    }
    return table;
}

} // namespace

std::vector<TTable> MakeTables(TDatabaseKind kind) {
    TDice dice;
    std::vector<int> prices;
    std::vector<TTable> tables;
    tables.push_back(Customers(dice, kind == TDatabaseKind::PostgreSQL ? u"uuid" : u"guid"));
    tables.push_back(Products(dice, prices));
    tables.push_back(Orders(dice));
    TTable items = Items(dice, prices, tables.back());
    tables.push_back(std::move(items));
    return tables;
}

} // namespace sampleorders
