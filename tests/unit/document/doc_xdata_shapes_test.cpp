// The reading of a stored record against a second description of it: the kinds of the items as letters, and
// the order in which the reader looks for them as a table.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>

#include "xdata_fields.h"
#include "xdata_items.h"

namespace {

// A name of an application, a long, a short, a text, a real.
constexpr char kKinds[] = {'A', 'L', 'S', 'T', 'R'};
constexpr char kFullShape[] = "ALSSSLSLLSSTS";

// What the reader looks for, one after the other. It passes an item only when it is the one looked for.
struct Step {
    char kind;                       // '.' for any
    bool isBoundToPrevious = false;  // looked for only if the step before found its item
};
constexpr std::array<Step, kXDataPlaces> kOrder = {{{'A'},
                                                    {'L'},
                                                    {'S'},
                                                    {'S', true},
                                                    {'S', true},
                                                    {'L'},
                                                    {'S'},
                                                    {'L'},
                                                    {'L', true},
                                                    {'.', true},
                                                    {'.', true},
                                                    {'.', true},
                                                    {'S'}}};

using Places = std::array<std::optional<std::size_t>, kOrder.size()>;

// The place of the item that each step finds.
Places PlacesByTable(const std::string& shape) {
    Places places;
    std::size_t at = 0;
    for (std::size_t step = 0; step < kOrder.size() && at < shape.size(); ++step) {
        if (kOrder[step].isBoundToPrevious && !places[step - 1]) continue;
        if (kOrder[step].kind == '.' || kOrder[step].kind == shape[at]) places[step] = at++;
    }
    return places;
}

int ShortAt(std::size_t place) {
    return -300 - static_cast<int>(place);
}
// The low half is another number than the whole, and than that of any short.
int LongAt(std::size_t place) {
    return 0x50000 + static_cast<int>(place);
}
// Of every length that a tag may have, and longer.
std::wstring TextAt(std::size_t place) {
    return std::wstring(place, static_cast<wchar_t>(L'a' + place));
}

XDataItems ItemsOf(const std::string& shape) {
    XDataItems items;
    for (std::size_t place = 0; place < shape.size(); ++place) {
        switch (shape[place]) {
            case 'A':
                items.App();
                break;
            case 'L':
                items.Long(LongAt(place));
                break;
            case 'S':
                items.Short(ShortAt(place));
                break;
            case 'T':
                items.Text(TextAt(place));
                break;
            default:
                items.Real(0.0);
        }
    }
    return items;
}

// What a field takes whose item may be of any kind: the low half of a number, nothing of a text.
int AnyAsShort(char kind, std::size_t place) {
    if (kind == 'L') return LongAt(place) & 0xFFFF;
    return kind == 'S' ? ShortAt(place) : 0;
}

XDataFields::Tag AnyAsTag(char kind, std::size_t place) {
    const std::wstring text = kind == 'A' ? kDocXDataAppName : kind == 'T' ? TextAt(place) : L"";
    XDataFields::Tag tag{};
    for (std::size_t i = 0; i < tag.size() && i < text.size(); ++i)
        tag[i] = static_cast<std::uint8_t>(text[i]);
    return tag;
}

XDataFields FieldsByTable(const std::string& shape) {
    const Places places = PlacesByTable(shape);
    XDataFields fields;
    const auto take = [&](std::size_t step, int& field, int (*valueAt)(std::size_t)) {
        if (places[step]) field = valueAt(*places[step]);
    };
    take(kSpec, fields.spec, LongAt);
    take(kMain, fields.mainSize, ShortAt);
    take(kBranch, fields.branchSize, ShortAt);
    take(kIso, fields.isoPlane, ShortAt);
    take(kLine, fields.line, LongAt);
    take(kElectric, fields.electricMode, ShortAt);
    take(kProject, fields.project, LongAt);
    take(kExtraLong, fields.extraLong, LongAt);
    if (const auto place = places[kShort1]) fields.extraShort1 = AnyAsShort(shape[*place], *place);
    if (const auto place = places[kShort2]) fields.extraShort2 = AnyAsShort(shape[*place], *place);
    if (const auto place = places[kTagText]) fields.tag = AnyAsTag(shape[*place], *place);
    take(kApp, fields.app, ShortAt);
    return fields;
}

void ExpectReadAsTheTableSays(const std::string& shape) {
    EXPECT_EQ(ReadFields(ItemsOf(shape)), FieldsByTable(shape)) << shape;
}

// Every list that begins with `shape` and has up to `more` items behind it.
void ExpectAllFrom(std::string& shape, int more) {
    ExpectReadAsTheTableSays(shape);
    if (more == 0) return;
    for (const char kind : {'A', 'L', 'S', 'T'}) {
        shape.push_back(kind);
        ExpectAllFrom(shape, more - 1);
        shape.pop_back();
    }
}

TEST(DocXDataShapes, Table_TakesAFullRecordWhole) {
    const XDataFields fields = FieldsByTable(kFullShape);
    EXPECT_EQ(fields.spec, LongAt(1));
    EXPECT_EQ(fields.isoPlane, ShortAt(4));
    EXPECT_EQ(fields.project, LongAt(7));
    EXPECT_EQ(fields.extraShort2, ShortAt(10));
    EXPECT_EQ(fields.tag[0], 'l');
    EXPECT_EQ(fields.app, ShortAt(12));
}

TEST(DocXDataShapes, EveryListOfUpToSevenItems_IsReadInOrder) {
    std::string shape;
    ExpectAllFrom(shape, 7);
}

TEST(DocXDataShapes, EveryEndOfAFullRecord_MayHaveAnyFourItemsInItsPlace) {
    for (std::size_t kept = 6; kept <= sizeof kFullShape - 1; ++kept) {
        std::string shape(kFullShape, kept);
        ExpectAllFrom(shape, 4);
    }
}

TEST(DocXDataShapes, AnyTwoItemsOfAFullRecord_MayBeOfAnyKind) {
    const std::string full = kFullShape;
    for (std::size_t first = 0; first < full.size(); ++first) {
        for (std::size_t second = first; second < full.size(); ++second) {
            for (const char kind : kKinds) {
                for (const char other : kKinds) {
                    std::string shape = full;
                    shape[first] = kind;
                    shape[second] = other;
                    ExpectReadAsTheTableSays(shape);
                }
            }
        }
    }
}

TEST(DocXDataShapes, AnyTwoItemsOfAFullRecord_MayBeMissing) {
    const std::string full = kFullShape;
    for (std::size_t first = 0; first < full.size(); ++first) {
        for (std::size_t second = first; second < full.size(); ++second) {
            std::string shape = full;
            shape.erase(second, 1);
            if (first != second) shape.erase(first, 1);
            ExpectReadAsTheTableSays(shape);
        }
    }
}

}  // namespace
