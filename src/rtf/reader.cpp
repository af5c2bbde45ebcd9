#include "rtf/reader.h"

#include "rtf/interpreter.h"
#include "rtf/tokens.h"
#include "rtf/utf8.h"
#include "rtf/writer.h"

namespace kelvo::rtf {

namespace {

constexpr std::string_view Signature = "{\\rtf";

/// Without a byte order mark and blanks in front.
std::string_view WithoutFrontMatter(std::string_view bytes)
{
    constexpr std::string_view ByteOrderMark = "\xef\xbb\xbf";
    if (bytes.starts_with(ByteOrderMark))
        bytes.remove_prefix(ByteOrderMark.size());
    const auto start = bytes.find_first_not_of(" \t\r\n");
    return start == std::string_view::npos ? std::string_view() : bytes.substr(start);
}

Document ReadRtf(std::string_view bytes)
{
    Tokens tokens(bytes);
    Interpreter interpreter;
    while (!interpreter.Finished())
        interpreter.Carry(tokens.Next());
    return interpreter.Finish();
}

Document ReadPlainText(std::string_view bytes)
{
    Writer writer;
    DecodeText(bytes, CodePageByNumber(1252), [&writer](char16_t unit) {
        if (unit == '\n')
            writer.EndParagraph({});
        else
            writer.Append(unit, {}, {});
    });
    return writer.Finish({});
}

} // namespace

Document Read(std::string_view bytes)
{
    const bool tooLong = bytes.size() > MostBytes;
    const std::string_view content = WithoutFrontMatter(bytes.substr(0, MostBytes));
    Document document = content.starts_with(Signature) ? ReadRtf(content) : ReadPlainText(content);
    document.cutOff |= tooLong;
    return document;
}

} // namespace kelvo::rtf
