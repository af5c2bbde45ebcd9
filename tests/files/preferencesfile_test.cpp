#include "files/preferencesfile.h"

#include <doctest/doctest.h>

using namespace kelvo;

namespace {

const Preferences Chosen{.ComPort = 3,
                         .AutoUpload = true,
                         .ConfirmUpload = false,
                         .Shortcuts = true,
                         .AutoRefresh = true,
                         .RefreshSeconds = 600};

} // namespace

TEST_CASE("settings.dat holds six lines, one value each")
{
    CHECK(ComposePreferences(Chosen) == "3\r\nTrue\r\nFalse\r\nTrue\r\n1\r\n600\r\n");
    CHECK(ComposePreferences(Preferences()) == "1\r\nFalse\r\nFalse\r\nFalse\r\n0\r\n0\r\n");
}

TEST_CASE("settings.dat is read with blanks and quotes around values, in any case, with either line end, "
          "behind a byte order mark too")
{
    for (const char *const bytes :
         {"3\r\nTrue\r\nFalse\r\nTrue\r\n1\r\n600\r\n", "3\nTrue\nFalse\nTrue\n1\n600",
          " 3 \r\n\tTRUE\r\n false \r\n\"true\"\r\n\" 1 \"\r\n \"600\" \r\n",
          "03\nTrue\nFALSE\ntRuE\n1\n600\nmore\n",
          "\xEF\xBB\xBF"
          "3\r\nTrue\r\nFalse\r\nTrue\r\n1\r\n600\r\n"}) {
        CAPTURE(bytes);
        CHECK(ParsePreferences(bytes) == Chosen);
    }
}

TEST_CASE("the first value that cannot be read ends the reading; the defaults stay for it and the rest")
{
    const auto first = [](int count) {
        Preferences options;
        if (count > 0)
            options.ComPort = 3;
        if (count > 1)
            options.AutoUpload = true;
        if (count > 2)
            options.ConfirmUpload = true;
        if (count > 3)
            options.Shortcuts = true;
        if (count > 4)
            options.AutoRefresh = true;
        if (count > 5)
            options.RefreshSeconds = 600;
        return options;
    };
    const std::string lines[] = {"3", "True", "True", "True", "1", "600"};
    for (const char *const bad : {"", "x", "1x", "Tru", "Truely", "\"True", "1.5", "70000", "--1", "1 1"})
        for (int damaged = 0; damaged <= 6; ++damaged) {
            std::string bytes;
            for (int line = 0; line < 6; ++line)
                bytes += (line == damaged ? std::string(bad) : lines[line]) + "\r\n";
            CAPTURE(bytes);
            CHECK(ParsePreferences(bytes) == first(damaged));
        }
    CHECK(ParsePreferences("") == Preferences());
    CHECK(ParsePreferences("3\r\nTrue") == first(2));
}

TEST_CASE("a port outside 1 to 4 is port 1, and the reading goes on")
{
    for (const char *const port : {"0", "5", "-1", "32767"}) {
        const Preferences options = ParsePreferences(std::string(port) + "\r\nTrue\r\n");
        CHECK(options.ComPort == 1);
        CHECK(options.AutoUpload);
    }
    CHECK(ParsePreferences("4\r\n").ComPort == 4);
}

TEST_CASE("automatic refresh is on at 1 alone, and any other word is off")
{
    for (const auto &[line, on] :
         {std::pair("1", true), std::pair("0", false), std::pair("-1", false), std::pair("2", false)}) {
        CAPTURE(line);
        const Preferences options =
            ParsePreferences("2\r\nTrue\r\nTrue\r\nTrue\r\n" + std::string(line) + "\r\n30\r\n");
        CHECK(options.AutoRefresh == on);
        CHECK(options.RefreshSeconds == 30);
    }
}
