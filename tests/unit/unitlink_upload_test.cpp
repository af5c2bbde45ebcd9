#include "support/linkundertest.h"
#include "unit/onechange.h"

using namespace kelvo;

namespace {

const std::string Question = "ask Confirm Upload!: Are you sure you want to Upload the Current Settings?";
const Trace BothSent{"SetSystem", "SetAudio", "show date"};

} // namespace

TEST_CASE("off line an upload changes nothing, not even the clock bytes")
{
    for (UploadTrigger trigger :
         {UploadTrigger::Explicit, UploadTrigger::AfterEdit, UploadTrigger::Unasked}) {
        LinkUnderTest console;
        console.options = {.AutoUpload = true};
        console.link.UploadToUnit(UploadSelector::Both, trigger);
        CHECK(console.room.Audio.UnitClock == std::array<Byte, 4>{});
        CHECK(console.Happened().empty());
    }
}

TEST_CASE("the selector chooses the records, the system record first; each upload refreshes the date")
{
    ConnectedLink console;
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Unasked);
    CHECK(console.Happened() == BothSent);
    console.link.UploadToUnit(UploadSelector::SystemOnly, UploadTrigger::Unasked);
    CHECK(console.Happened() == Trace{"SetSystem", "show date"});
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
    CHECK(console.Happened() == Trace{"SetAudio", "show date"});
}

TEST_CASE("an upload after an edit goes only with \"Automatically Upload\" and outside the program's updates")
{
    for (bool automatic : {false, true}) {
        for (bool updating : {false, true}) {
            CAPTURE(automatic);
            CAPTURE(updating);
            ConnectedLink console;
            const auto clockBefore = console.room.Audio.UnitClock;
            console.options = {.AutoUpload = automatic, .ConfirmUpload = true};
            console.link.Updating = updating;
            console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit);
            const bool sent = automatic && !updating;
            CHECK(console.Happened() == (sent ? Trace{"SetAudio", "show date"} : Trace{}));
            CHECK((console.room.Audio.UnitClock != clockBefore) == sent);
        }
    }
}

TEST_CASE("an explicit upload asks only with \"Confirm Message Box\" and without \"Automatically Upload\"")
{
    for (bool automatic : {false, true}) {
        for (bool confirm : {false, true}) {
            CAPTURE(automatic);
            CAPTURE(confirm);
            ConnectedLink console;
            console.options = {.AutoUpload = automatic, .ConfirmUpload = confirm};
            console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
            const bool asked = confirm && !automatic;
            CHECK(console.Happened() == Join({asked ? Trace{Question} : Trace{}, BothSent}));
        }
    }
}

TEST_CASE("No to the question sends nothing and leaves the clock bytes")
{
    ConnectedLink console;
    const auto clockBefore = console.room.Audio.UnitClock;
    console.options.ConfirmUpload = true;
    console.view.answer = false;
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    CHECK(console.Happened() == Trace{Question});
    CHECK(console.room.Audio.UnitClock == clockBefore);
}

TEST_CASE("an explicit upload is sent while the program is updating controls")
{
    ConnectedLink console;
    console.link.Updating = true;
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    CHECK(console.Happened() == BothSent);
}

TEST_CASE("an upload that is not an edit's and not the command's asks nothing and checks nothing")
{
    ConnectedLink console;
    console.options = {.AutoUpload = false, .ConfirmUpload = true};
    console.link.Updating = true;
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Unasked);
    CHECK(console.Happened() == BothSent);
}

TEST_CASE("the unit is left alone while the question is open")
{
    ConnectedLink console;
    console.options = {.ConfirmUpload = true, .AutoRefresh = true};
    console.view.duringBox = [&] {
        console.link.PollTick();
        console.link.RefreshTick(true);
        console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
        CHECK_FALSE(console.link.ConnectToUnit());
    };
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    CHECK(console.Happened() == Join({{Question}, BothSent}));
}

TEST_CASE("the upload stamps the PC's time on a 12-hour PC")
{
    ConnectedLink console;
    console.clock.am = " AM";
    console.clock.pm = " PM";
    console.clock.Set(2023, 12, 31, 23, 59); // a Sunday
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
    CHECK(console.unit.audio.UnitClock == std::array<Byte, 4>{13 * 16 + 11, 2 * 32 + 31, 64 + 59, 23});

    console.clock.Set(2024, 1, 1, 9, 4); // a Monday
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
    CHECK(console.unit.audio.UnitClock == std::array<Byte, 4>{2 * 16 + 9, 3 * 32 + 1, 4, 24});
}

TEST_CASE("only an upper-case PM at the end of the time text sets the flag")
{
    for (const auto &row : {std::pair{" PM", 64},
                            {"PM", 64},
                            {" pm", 0},
                            {" Pm", 0},
                            {"", 0},
                            {" PM o'clock", 0},
                            {" p.m.", 0},
                            {" AM", 0}}) {
        const auto &text = row.first;
        const auto &flag = row.second;
        CAPTURE(text);
        ConnectedLink console;
        console.clock.pm = text;
        console.clock.Set(2024, 3, 14, 15, 9);
        console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
        CHECK(console.unit.audio.UnitClock ==
              std::array<Byte, 4>{4 * 16 + 3, 6 * 32 + 14, Byte(flag + 9), 24});
    }
}

TEST_CASE("an upload of the system record alone stamps the clock all the same")
{
    ConnectedLink console;
    console.clock.Set(2024, 3, 14, 15, 9);
    console.link.UploadToUnit(UploadSelector::SystemOnly, UploadTrigger::Unasked);
    CHECK(console.room.Audio.UnitClock == std::array<Byte, 4>{4 * 16 + 3, 6 * 32 + 14, 9, 24});
}

TEST_CASE("an upload sends the settings' records, every byte but the clock as it stands")
{
    ConnectedLink console;
    std::ranges::fill(BytesOf(console.room.Audio), Byte(0xC7));
    std::ranges::fill(BytesOf(console.room.System), Byte(0x7C));
    const AudioBlock audio = console.room.Audio;
    const SystemBlock system = console.room.System;
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Unasked);
    CHECK(console.unit.system == system);
    CHECK(std::ranges::equal(BytesOf(console.unit.audio).subspan(4), BytesOf(audio).subspan(4)));
}

TEST_CASE("after a first send that failed the second one does nothing; the date is refreshed all the same")
{
    ConnectedLink console;
    console.unit.FailNext(Operation::SetSystem, 8, 6);
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Unasked);
    CHECK_FALSE(console.link.UnitOnline());
    const Trace happened = console.Happened();
    CHECK(std::ranges::count(happened, "SetSystem") == 6);
    CHECK(std::ranges::count(happened, "SetAudio") == 0);
    CHECK(std::ranges::count(happened, ErrorBox("- Error Communicating System Block\n")) == 1);
    CHECK(happened.back() == "show date");
}

TEST_CASE("the console's clock, once set, is stamped and runs on from there")
{
    ConnectedLink console;
    console.clock.Set(2024, 3, 14, 15, 9);
    const LocalTime chosen = std::chrono::local_days(std::chrono::year(2023) / 12 / 31) +
                             std::chrono::hours(23) + std::chrono::minutes(58);
    console.link.Clock().Set(chosen);
    CHECK(console.link.Clock().Now() == chosen);
    console.clock.Set(2024, 3, 14, 15, 10);
    CHECK(console.link.Clock().Now() == chosen + std::chrono::minutes(1));

    console.clock.pm = " PM";
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
    CHECK(console.unit.audio.UnitClock == std::array<Byte, 4>{13 * 16 + 11, 2 * 32 + 31, 64 + 59, 23});
}

TEST_CASE("the PM flag follows the console's clock, not the PC's")
{
    ConnectedLink console;
    console.clock.am = " AM";
    console.clock.pm = " PM";
    console.clock.Set(2024, 3, 14, 9, 0);
    console.link.Clock().Set(console.clock.now + std::chrono::hours(6));
    console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
    CHECK(console.unit.audio.UnitClock == std::array<Byte, 4>{4 * 16 + 3, 6 * 32 + 14, 64, 24});
}

TEST_CASE("an emptied console clock follows the PC again")
{
    ConnectedLink console;
    console.link.Clock().Set(console.clock.now + std::chrono::days(400));
    console.link.Clock().Set(std::nullopt);
    CHECK(console.link.Clock().Now() == console.clock.now);
}

TEST_CASE("showing the unit reads five things in order, then shows them without a handler acting")
{
    ConnectedLink console;
    console.link.ShowSettings(Source::Update);
    CHECK(console.Happened() ==
          Trace{"GetAudio", "GetSystem", "GetMute", "GetVol", "GetFormat", "show update"});
    CHECK_FALSE(console.link.Updating);
}

TEST_CASE("showing the unit leaves Updating set where it was set")
{
    ConnectedLink console;
    console.link.Updating = true;
    console.link.ShowSettings(Source::Update);
    CHECK(console.link.Updating);
}

TEST_CASE("a unit that is lost while it is shown is reported once, and the screen stays as it was")
{
    ConnectedLink console;
    console.unit.audio.ChannelTrim[Left] = 3;
    console.unit.FailNext(Operation::GetSystem, 8, 6);
    CHECK_FALSE(console.link.ShowSettings(Source::Update));
    CHECK(console.room.Audio.ChannelTrim[Left] != 3);
    const Trace happened = console.Happened();
    CHECK(std::ranges::count(happened, ErrorBox("- Error Communicating System Block\n")) == 1);
    CHECK(std::ranges::count(happened, "GetMute") == 0);
    CHECK(std::ranges::count(happened, "show update") == 0);
}

TEST_CASE("what the unit is shown with is every field but the theatre's texts")
{
    ConnectedLink console;
    console.link.ShowSettings(Source::Update);
    ForEachField([&](FieldId id, const Field &field) {
        CAPTURE(field.key);
        CHECK(console.view.lastChanged.Has(id) == (field.section != Section::Theatre));
    });
}

TEST_CASE("an upload and an operation tell what the unit lacks once each, whatever they call")
{
    ConnectedLink console;
    int told = 0;
    console.view.onShowSent = [&told] { ++told; };
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    CHECK(told == 1);
    console.link.PollTick();
    CHECK(told == 2);
    console.link.Update();
    CHECK(told == 3);
    console.link.RetryFunction(UnitOp::SetVol);
    CHECK(told == 4);
    {
        const OneChange change(console.link);
        console.link.RetryFunction(UnitOp::SetVol);
        console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
        CHECK(told == 4);
    }
    CHECK(told == 5);
}
