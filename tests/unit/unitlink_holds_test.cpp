#include "support/linkundertest.h"

using namespace kelvo;

TEST_CASE("before a unit was read nothing is said about differences")
{
    LinkUnderTest console;
    CHECK(console.link.Differences() == std::nullopt);
    CHECK(messages::SentText(std::nullopt) == "");
}

TEST_CASE("the line beside the lamp")
{
    CHECK(messages::SentText(0) == "All sent");
    CHECK(messages::SentText(1) == "1 change not in the unit - F2");
    CHECK(messages::SentText(3) == "3 changes not in the unit - F2");
}

TEST_CASE("after a connection everything on the screen is in the unit")
{
    ConnectedLink console;
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("every byte of both records is a field, but for the clock and the two bytes of the reader delay")
{
    ConnectedLink console;
    for (std::size_t offset = 0; offset < sizeof(AudioBlock); ++offset) {
        CAPTURE(offset);
        BytesOf(console.settings.Audio)[offset] ^= 1;
        CHECK(console.link.Differences() == (offset < 4 ? 0 : 1));
        BytesOf(console.settings.Audio)[offset] ^= 1;
    }
    for (std::size_t offset = 0; offset < sizeof(SystemBlock); ++offset) {
        CAPTURE(offset);
        BytesOf(console.settings.System)[offset] ^= 1;
        CHECK(console.link.Differences() == 1);
        BytesOf(console.settings.System)[offset] ^= 1;
    }
    SetReaderDelayIndex(console.settings.System, 300); // both bytes change
    CHECK(console.link.Differences() == 1);
}

TEST_CASE("fader, mute and format are fields; mute counts as a truth")
{
    ConnectedLink console;
    console.settings.FaderLevel = 71;
    CHECK(console.link.Differences() == 1);
    console.settings.MuteState = True;
    CHECK(console.link.Differences() == 2);
    console.settings.CurrentFormat = 1;
    CHECK(console.link.Differences() == 3);
    console.settings.Audio.ObeLevel ^= 1;
    console.settings.System.NonsyncTrim ^= 1;
    CHECK(console.link.Differences() == 5);

    console.unit.panel.mute = 1;
    console.link.RetryFunction(UnitOp::GetMute);
    console.settings.MuteState = True;
    CHECK(console.link.Differences() == 4);
}

TEST_CASE("each operation that succeeds brings its own value into agreement")
{
    ConnectedLink console;
    console.settings.Audio.ObeLevel ^= 1;
    console.settings.System.NonsyncTrim ^= 1;
    console.settings.FaderLevel = 71;
    console.settings.MuteState = True;
    console.settings.CurrentFormat = 1;
    int left = 5;
    for (UnitOp op :
         {UnitOp::SetAudio, UnitOp::SetSystem, UnitOp::SetVol, UnitOp::SetMute, UnitOp::SelectFormat}) {
        CHECK(console.link.Differences() == left--);
        console.link.RetryFunction(op);
    }
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a send that fails keeps its difference, after the link is lost too")
{
    ConnectedLink console;
    console.settings.Audio.ObeLevel ^= 1;
    console.unit.FailNext(Operation::SetAudio, 16, 6);
    console.link.RetryFunction(UnitOp::SetAudio);
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.link.Differences() == 1);
    console.settings.Audio.ChannelTrim[Left] ^= 1;
    CHECK(console.link.Differences() == 2);
}

TEST_CASE("after an explicit upload of both records they are in the unit, the stamped clock included")
{
    ConnectedLink console;
    ResetAll(console.settings);
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    console.link.PollTick();
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a new connection reads the unit anew")
{
    ConnectedLink console;
    console.link.DispErr(1);
    ResetAll(console.settings);
    CHECK(console.link.Differences() > 0);
    CHECK(console.link.ConnectToUnit());
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a unit that did not tell a record is not compared with the one before it")
{
    ConnectedLink console;
    console.link.DispErr(1);
    console.unit.FailNext(Operation::GetAudio, StreamNotLocked, 6);
    CHECK(console.link.ConnectToUnit());
    CHECK(console.link.Differences() == std::nullopt);
}

TEST_CASE("noise, phase and RT60 are known but are no differences")
{
    ConnectedLink console;
    console.link.RetryFunction(UnitOp::SetPink, Center, True);
    console.link.RetryFunction(UnitOp::SetPhase, Right, True);
    console.link.RetryFunction(UnitOp::SetRT60, 0, True);
    CHECK(console.link.Holds().Pink == std::array<bool, ChannelCount>{false, false, true});
    CHECK(console.link.Holds().Inverted == std::array<bool, ChannelCount>{false, false, false, false, true});
    CHECK(console.link.Holds().RT60);
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a channel that does not exist is passed on and remembered nowhere")
{
    ConnectedLink console;
    for (Word channel : {Word(-1), Word(6), Word(32767)})
        CHECK(console.link.RetryFunction(UnitOp::SetPink, channel, True) == Success);
    CHECK(console.Happened() == Trace{"SetPink -1 -1", "SetPink 6 -1", "SetPink 32767 -1"});
    CHECK(console.link.Holds().Pink == std::array<bool, ChannelCount>{});
    CHECK(console.link.Holds().Inverted == std::array<bool, ChannelCount>{});
}

TEST_CASE("the line beside the lamp is right at every rest")
{
    ConnectedLink console;
    std::optional<int> shown = -1;
    console.view.onShowSent = [&] { shown = console.link.Differences(); };
    const auto rests = [&](auto act) {
        shown = -1;
        act();
        CHECK(shown == console.link.Differences());
    };
    const auto edit = [&] { console.settings.Audio.ObeLevel ^= 1; };

    edit();
    rests([&] { console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit); });
    CHECK(shown == 1);
    rests([&] { console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Explicit); });
    CHECK(shown == 0);
    console.settings.FaderLevel = 20;
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 0);
    edit();
    rests([&] { console.link.ShowSettings(); });
    CHECK(shown == 0);
    edit();
    console.settings.Options.ConfirmUpload = true;
    console.view.answer = false;
    rests([&] { console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit); });
    CHECK(shown == 1);
    console.unit.FailNext(Operation::SetVol, 1, 6);
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 1);
    console.settings.FaderLevel = 30; // off line now
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 2);
    rests([&] { console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit); });
    rests([&] { console.link.ConnectToUnit(); });
    CHECK(shown == 0);
}
