#include "edit/journallines.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace kelvo::journal {

namespace {

constexpr std::size_t SumDigits = 8;
constexpr std::array<std::pair<char, char>, 4> Escapes{{{'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}}};

/// FNV-1a, 32 bits: it is to find cut lines and bad sectors, not forgers.
std::uint32_t Sum(std::string_view text)
{
    std::uint32_t sum = 2166136261U;
    for (const char character : text)
        sum = (sum ^ std::uint8_t(character)) * 16777619U;
    return sum;
}

std::string Digits(std::uint32_t sum)
{
    std::array<char, SumDigits> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), sum, 16).ptr;
    const std::string text(digits.data(), end);
    return std::string(SumDigits - text.size(), '0') + text;
}

void Escape(std::string_view cell, std::string &line)
{
    for (const char character : cell) {
        bool plain = true;
        for (const auto &[meant, letter] : Escapes)
            if (character == meant) {
                line += '\\';
                line += letter;
                plain = false;
            }
        if (plain)
            line += character;
    }
}

char Meant(char letter)
{
    for (const auto &[meant, escaped] : Escapes)
        if (letter == escaped)
            return meant;
    return letter;
}

void Split(std::string_view text, std::vector<std::string> &cells)
{
    cells.assign(1, {});
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\t')
            cells.emplace_back();
        else if (text[at] == '\\' && at + 1 < text.size())
            cells.back() += Meant(text[++at]);
        else
            cells.back() += text[at];
    }
}

} // namespace

std::string Line(const std::vector<std::string> &cells)
{
    std::string text;
    for (const std::string &cell : cells) {
        Escape(cell, text);
        text += '\t';
    }
    if (!cells.empty())
        text.pop_back();
    return Digits(Sum(text)) + ' ' + text + '\n';
}

bool TakeCells(std::string_view &rest, std::vector<std::string> &cells)
{
    cells.clear();
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.empty())
        return end != std::string_view::npos || rest.empty();
    const std::string_view text = line.substr(std::min(line.size(), SumDigits + 1));
    const bool whole = end != std::string_view::npos && line.size() > SumDigits && line[SumDigits] == ' ' &&
                       line.substr(0, SumDigits) == Digits(Sum(text));
    if (whole)
        Split(text, cells);
    return whole;
}

std::string Setting(FieldId id, const RoomSettings &room)
{
    const Field &field = FieldOf(id);
    return Key(id) + "=" +
           (field.place == Place::Text ? room.TheaterInfo[field.at] : std::to_string(Get(room, id)));
}

} // namespace kelvo::journal
