#include "exchange/text/LineCode.h"

#include "lang/LoadText.h"

#include <algorithm>
#include <iterator>

namespace {

struct CodeRow {
    int code;
    Text text;
};
/// Some of the codes come from nowhere in this program; files of notes about former imports may name them.
constexpr CodeRow kCodes[] = {
    {0, Text::LineNotStored},     {1, Text::LineReserved1},   {2, Text::LineNoSeparator},
    {3, Text::LineTooManyFields}, {4, Text::LineTooLong},     {5, Text::LineReserved5},
    {6, Text::LineTooFewFields},  {7, Text::LineBadDate},     {8, Text::LineReserved8},
    {9, Text::LineReserved9},     {16, Text::LineReserved16}, {17, Text::LineReserved17},
    {18, Text::LineReserved18},   {19, Text::LineReserved19}, {20, Text::LineUnknownList},
};

}  // namespace

QString TextOf(LineCode code) {
    const auto* row = std::ranges::find(kCodes, static_cast<int>(code), &CodeRow::code);
    return LoadText(row == std::end(kCodes) ? Text::LineUnknownReason : row->text);
}
