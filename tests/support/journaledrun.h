#pragma once

#include "edit/editor.h"
#include "support/linkundertest.h"
#include "support/testfolder.h"

namespace kelvo {

/// A run with a journal in a folder; it is killed when its scope ends, unless it is told to tidy up.
struct JournaledRun : LinkUnderTest {
    FileState file;
    std::vector<std::string> faults;
    Journal journal;
    Editor editor{room, file, link, clock, journal, [](const Changed &) {}};

    explicit JournaledRun(const TestFolder &folder, const FileCalls &calls = system())
        : journal(
              folder.Path("journals"), [this](const std::string &reason) { faults.push_back(reason); }, calls)
    {
    }

    void SetField(FieldId field, int stored) { editor.Apply(Edit::One(field, stored)); }
    void SetText(int text, const std::string &to)
    {
        editor.Apply({.name = "Theater", .fields = {field::Theater(text)}, .make = [&](RoomSettings &into) {
                          into.TheaterInfo[text] = to;
                      }});
    }

    static const FileCalls &system()
    {
        static const FileCalls calls;
        return calls;
    }
};

inline std::vector<LeftBehind> Found(const TestFolder &folder)
{
    return FindJournals(folder.Path("journals"));
}

} // namespace kelvo
