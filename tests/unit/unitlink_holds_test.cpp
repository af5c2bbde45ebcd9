#include "support/linkundertest.h"

using namespace kelvo;

TEST_CASE("before a unit was read nothing is said about differences")
{
    LinkUnderTest console;
    CHECK(console.link.Differences() == std::nullopt);
    CHECK(messages::SentText(std::nullopt, false) == "");
}

TEST_CASE("the line beside the lamp")
{
    CHECK(messages::SentText(0, true) == "All sent");
    CHECK(messages::SentText(1, true) == "1 change not in the unit - F2");
    CHECK(messages::SentText(3, true) == "3 changes not in the unit - F2");
    CHECK(messages::SentText(1, false) == "1 change not in the unit");
    CHECK(messages::SentText(3, false) == "3 changes not in the unit");
}

TEST_CASE("after a connection everything on the screen is in the unit")
{
    ConnectedLink console;
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("every byte behind a control counts as its setting; reserved and kept bytes never do")
{
    // Reserved: the clock and bytes 4, 5; of each 30-byte slice from 12 on what its channel has no control
    // for; 194 on. The screens' slices have 27 bands and two shelves, the surrounds' nine bands, the
    // subwoofer's three bytes.
    const auto shown = [](std::size_t offset) {
        if (offset >= 6 && offset < 12)
            return true;
        if (offset < 12 || offset >= 192)
            return offset == 192 || offset == 193;
        const std::size_t channel = (offset - 12) / 30;
        const std::size_t byte = (offset - 12) % 30;
        const std::size_t bands = channel == 5 ? 3 : channel % 2 == 1 ? 9 : 27;
        return byte < bands || byte == 27 || byte == 28;
    };
    ConnectedLink console;
    for (std::size_t offset = 0; offset < sizeof(AudioBlock); ++offset) {
        CAPTURE(offset);
        BytesOf(console.room.Audio)[offset] ^= 1;
        CHECK(console.link.Differences() == (shown(offset) ? 1 : 0));
        BytesOf(console.room.Audio)[offset] ^= 1;
    }
    for (std::size_t offset = 0; offset < sizeof(SystemBlock); ++offset) {
        CAPTURE(offset);
        const bool option =
            offset == 0 || offset == 1 || (offset >= 3 && offset <= 6) || offset == 24 || offset == 30;
        BytesOf(console.room.System)[offset] ^= 1;
        CHECK(console.link.Differences() == (option ? 1 : 0));
        BytesOf(console.room.System)[offset] ^= 1;
    }
    SetReaderDelayIndex(console.room.System, 300); // both bytes change
    CHECK(console.link.Differences() == 1);
}

TEST_CASE("fader, mute and format are fields; mute counts as a truth")
{
    ConnectedLink console;
    console.room.FaderLevel = 71;
    CHECK(console.link.Differences() == 1);
    console.room.MuteState = True;
    CHECK(console.link.Differences() == 2);
    console.room.CurrentFormat = 1;
    CHECK(console.link.Differences() == 3);
    console.room.Audio.ObeLevel ^= 1;
    console.room.System.NonsyncTrim ^= 1;
    CHECK(console.link.Differences() == 5);

    console.unit.panel.mute = 1;
    console.link.RetryFunction(UnitOp::GetMute);
    console.room.MuteState = True;
    CHECK(console.link.Differences() == 4);
}

TEST_CASE("each operation that succeeds brings its own value into agreement")
{
    ConnectedLink console;
    console.room.Audio.ObeLevel ^= 1;
    console.room.System.NonsyncTrim ^= 1;
    console.room.FaderLevel = 71;
    console.room.MuteState = True;
    console.room.CurrentFormat = 1;
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
    console.room.Audio.ObeLevel ^= 1;
    console.unit.FailNext(Operation::SetAudio, 16, 6);
    console.link.RetryFunction(UnitOp::SetAudio);
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.link.Differences() == 1);
    console.room.Audio.ChannelTrim[Left] ^= 1;
    CHECK(console.link.Differences() == 2);
}

TEST_CASE("after an explicit upload of both records they are in the unit, the stamped clock included")
{
    ConnectedLink console;
    ResetAll(console.room);
    console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    console.link.PollTick();
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a new connection reads the unit anew")
{
    ConnectedLink console;
    console.link.DispErr(1);
    ResetAll(console.room);
    CHECK(console.link.Differences() > 0);
    CHECK(console.link.ConnectToUnit());
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a unit that did not tell a record is not compared with the one before it")
{
    ConnectedLink console;
    console.link.DispErr(1);
    console.unit.FailNext(Operation::GetAudio, StreamNotLocked, 6);
    CHECK_FALSE(console.link.ConnectToUnit());
    CHECK(console.link.Differences() == std::nullopt);
}

TEST_CASE("noise, phase and RT60 are known but are no differences")
{
    ConnectedLink console;
    console.link.RetryFunction(UnitOp::SetPink, Center, True);
    console.link.RetryFunction(UnitOp::SetPhase, Right, True);
    console.link.RetryFunction(UnitOp::SetRT60, 0, True);
    CHECK(console.link.Holds().Playing.Pink == std::array<bool, ChannelCount>{false, false, true});
    CHECK(console.link.Holds().Playing.Inverted ==
          std::array<bool, ChannelCount>{false, false, false, false, true});
    CHECK(console.link.Holds().Playing.RT60);
    CHECK(console.link.Differences() == 0);
}

TEST_CASE("a channel that does not exist is passed on and remembered nowhere")
{
    ConnectedLink console;
    for (Word channel : {Word(-1), Word(6), Word(32767)})
        CHECK(console.link.RetryFunction(UnitOp::SetPink, channel, True) == Success);
    CHECK(console.Happened() == Trace{"SetPink -1 -1", "SetPink 6 -1", "SetPink 32767 -1"});
    CHECK(console.link.Holds().Playing.Pink == std::array<bool, ChannelCount>{});
    CHECK(console.link.Holds().Playing.Inverted == std::array<bool, ChannelCount>{});
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
    const auto edit = [&] { console.room.Audio.ObeLevel ^= 1; };

    edit();
    rests([&] { console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit); });
    CHECK(shown == 1);
    rests([&] { console.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Explicit); });
    CHECK(shown == 0);
    console.room.FaderLevel = 20;
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 0);
    edit();
    rests([&] { console.link.ShowSettings(Source::Update); });
    CHECK(shown == 0);
    edit();
    console.options.ConfirmUpload = true;
    console.view.answer = false;
    rests([&] { console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit); });
    CHECK(shown == 1);
    console.unit.FailNext(Operation::SetVol, 1, 6);
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 1);
    console.room.FaderLevel = 30; // off line now
    rests([&] { console.link.RetryFunction(UnitOp::SetVol); });
    CHECK(shown == 2);
    rests([&] { console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit); });
    rests([&] { console.link.ConnectToUnit(); });
    CHECK(shown == 0);
}

TEST_CASE("which settings the unit does not hold")
{
    LinkUnderTest unread;
    unread.room.FaderLevel = 71;
    CHECK(unread.link.NotInUnit().none());

    ConnectedLink console;
    CHECK(console.link.NotInUnit().none());
    console.room.FaderLevel = 71;
    console.room.Audio.ChannelTrim[Center] ^= 1;
    FieldSet expected;
    expected.set(std::size_t(field::Fader)).set(std::size_t(field::Trim(Center)));
    CHECK(console.link.NotInUnit() == expected);
    console.link.RetryFunction(UnitOp::SetVol);
    CHECK(console.link.NotInUnit() == expected.reset(std::size_t(field::Fader)));
}

TEST_CASE("off line a mute is no change that the unit lacks")
{
    ConnectedLink console;
    console.room.MuteState = True;
    console.room.FaderLevel = 71;
    CHECK(console.link.Differences() == 2);
    console.link.SetConnectStatus(LinkState::OffLine);
    CHECK(console.link.Differences() == 1);
    CHECK(!console.link.NotInUnit().test(std::size_t(field::Mute)));
}
