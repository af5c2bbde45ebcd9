#include "support/ui/consoleundertest.h"
#include "ui/controls/levelfield.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <array>
#include <map>
#include <random>

using namespace kelvo;

namespace {

int FromEnvironment(const char *name, int otherwise)
{
    bool given = false;
    const int value = qEnvironmentVariableIntValue(name, &given);
    return given ? value : otherwise;
}

/// A user who does anything at any moment on the tabs with levels, over a unit whose line fails now and then.
class Walk {
  public:
    explicit Walk(unsigned seed) : random_(seed)
    {
        console_.options.AutoUpload = true;
        console_.options.Shortcuts = true;
        console_.WithEveryDialog([this](QDialog *dialog) {
            auto *box = qobject_cast<QMessageBox *>(dialog);
            if (!box)
                return; // the fader dialog and its like stay open
            const QString title = box->windowTitle();
            connectionErrors_ += title == "Connection Error";
            auto answer = Chance(2) ? QMessageBox::Yes : QMessageBox::No;
            if (title == "Connection Error" || title == "Range Check Error" || title == "Error")
                answer = QMessageBox::Ok;
            else if (title == "Save?")
                answer = QMessageBox::No; // Yes would lead to a file dialog
            console_.Click(box->button(answer));
        });
        console_.GoTo(Tab::Eq);
    }

    void Step()
    {
        static constexpr std::array Acts{
            &Walk::PressKey,      &Walk::PressKey,      &Walk::RepeatKey,   &Walk::RepeatKey,
            &Walk::ReleaseKey,    &Walk::ReleaseKey,    &Walk::TypeText,    &Walk::TypeText,
            &Walk::LeaveField,    &Walk::LeaveField,    &Walk::BeginDrag,   &Walk::MoveDrag,
            &Walk::MoveDrag,      &Walk::EndDrag,       &Walk::EndDrag,     &Walk::ClickGroove,
            &Walk::TurnWheel,     &Walk::ClickButton,   &Walk::ClickButton, &Walk::ClickButton,
            &Walk::ClickOption,   &Walk::ChangeTab,     &Walk::Shortcut,    &Walk::TickPoll,
            &Walk::TouchPanel,    &Walk::FailSometimes, &Walk::PullCable,   &Walk::Connect,
            &Walk::ToggleUpload,  &Walk::SetByCode,     &Walk::ReadBack,    &Walk::New,
            &Walk::ExplicitUpload};
        const int errorsBefore = connectionErrors_;
        lastAct_ = Number(int(Acts.size()));
        (this->*Acts[std::size_t(lastAct_)])();
        QVERIFY2(connectionErrors_ - errorsBefore <= 1, "one failure showed two messages");
        for (const std::string &call : console_.Calls())
            ++calls_[call.substr(0, call.find(' '))];
        console_.Forget();
        // Nobody clicks before the window is active again that a box had covered.
        while (!QApplication::activeWindow()) {
            console_.window->activateWindow();
            QCoreApplication::processEvents();
        }
    }

    /// Hands off, nothing half typed: what is wrong now? "" = nothing.
    QString Rest()
    {
        ReleaseKey();
        EndDrag();
        // The main window and the fader dialog may each have a field that is being typed in.
        for (LevelField *field : console_.window->findChildren<LevelField *>()) {
            for (const int key : {Qt::Key_Return, Qt::Key_Escape})
                if (field->IsPending()) {
                    Focus(field);
                    console_.Key(key);
                }
        }
        QCoreApplication::processEvents();
        console_.window->activateWindow();
        QCoreApplication::processEvents();
        for (const QString &wrong : {WrongFader(), WrongTrims(), WrongChannel(), WrongMute(), WrongSent()})
            if (!wrong.isEmpty())
                return wrong;
        if (OnLine() && !console_.Find<QTimer>("tmrPoll")->isActive())
            return "the poll did not resume";
        return {};
    }

    /// Connects when needed, polls and uploads: what still differs? "" = nothing.
    QString UploadAll()
    {
        Rest();
        console_.unit.panel.plugged = true;
        console_.unit.ForgetFailures();
        if (!OnLine())
            console_.Key(Qt::Key_F1);
        console_.Tick("tmrPoll");
        console_.Key(Qt::Key_F2);
        if (!OnLine())
            return "no connection";
        const QString sent = console_.Find<QLabel>("lblSent")->text();
        return sent == "All sent" && Unsent() == 0 ? "" : "after the upload: " + sent;
    }

    int LastAct() const { return lastAct_; }
    /// How often the walk led to a call of this operation.
    int CallsOf(const char *operation) const
    {
        const auto counted = calls_.find(operation);
        return counted == calls_.end() ? 0 : counted->second;
    }

  private:
    int Number(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    bool Chance(int in) { return Number(in) == 0; }
    template <typename Item>
    const Item &Pick(const std::vector<Item> &items)
    {
        return items[std::size_t(Number(int(items.size())))];
    }
    bool OnLine() const { return console_.Find<QLabel>("lblStat")->text() == "On Line"; }

    template <typename Control>
    Control *AnyUsable()
    {
        std::vector<Control *> usable;
        for (Control *control : console_.window->findChildren<Control *>())
            if (control->isVisible() && control->isEnabled())
                usable.push_back(control);
        return usable.empty() ? nullptr : Pick(usable);
    }

    // What the user does.
    void PressKey()
    {
        static const std::vector<int> Keys{Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                                           Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                           Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_A};
        if (Chance(3) || !qobject_cast<LevelSlider *>(QApplication::focusWidget()))
            Focus(AnyUsable<LevelSlider>());
        if (heldKey_ != 0 || !qobject_cast<LevelSlider *>(QApplication::focusWidget()))
            return;
        heldKey_ = Pick(Keys);
        console_.Press(heldKey_, Chance(2) ? Qt::KeypadModifier : Qt::NoModifier);
    }
    void RepeatKey()
    {
        if (heldKey_ != 0 && QApplication::focusWidget())
            console_.Repeat(heldKey_);
    }
    void ReleaseKey()
    {
        if (heldKey_ != 0 && QApplication::focusWidget())
            console_.Release(heldKey_);
        heldKey_ = 0;
    }
    /// As a click would: the control's window comes first.
    void Focus(QWidget *control)
    {
        if (!control)
            return;
        Activate(control);
        control->setFocus();
    }
    void Activate(const QWidget *control)
    {
        if (control->window() == QApplication::activeWindow())
            return;
        control->window()->activateWindow();
        QCoreApplication::processEvents();
    }
    void TypeText()
    {
        static const std::vector<const char *> Texts{"0",  "3",   "-3.3", "6",     "-6",   "10",   "9.9",
                                                     "7",  "abc", "",     "--3",   "1e3",  "2,5",  "-10",
                                                     "11", " 4 ", "-0.1", "1e400", "0.25", "5.5dB"};
        LevelField *field = AnyUsable<LevelField>();
        if (!field)
            return;
        Focus(field);
        field->selectAll();
        QTest::keyClicks(field, Pick(Texts));
        if (Chance(2))
            console_.Key(Qt::Key_Return);
    }
    void LeaveField()
    {
        static const std::vector<int> Keys{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab};
        if (qobject_cast<LevelField *>(QApplication::focusWidget()))
            console_.Key(Pick(Keys));
    }
    void BeginDrag()
    {
        EndDrag();
        dragged_ = AnyUsable<LevelSlider>();
        if (dragged_)
            Activate(dragged_);
        if (dragged_)
            QTest::mousePress(dragged_, Qt::LeftButton, {}, ThumbOf(dragged_, dragged_->value()));
    }
    void MoveDrag()
    {
        if (dragged_)
            QTest::mouseMove(dragged_, ThumbOf(dragged_, Number(dragged_->maximum() + 1)));
    }
    void EndDrag()
    {
        if (dragged_)
            console_.Drop(dragged_.data());
        dragged_ = nullptr;
    }
    void ClickGroove()
    {
        LevelSlider *slider = AnyUsable<LevelSlider>();
        if (slider)
            Activate(slider);
        if (slider)
            QTest::mouseClick(slider, Qt::LeftButton, {}, ThumbOf(slider, Number(slider->maximum() + 1)));
    }
    void TurnWheel()
    {
        if (LevelSlider *slider = AnyUsable<LevelSlider>())
            console_.Wheel(slider, Chance(2) ? 120 : -240);
    }
    void ClickButton()
    {
        auto *button = AnyUsable<QPushButton>();
        if (!button || button->objectName() == "cmdConnect")
            return;
        Activate(button);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    void ClickOption()
    {
        if (auto *option = AnyUsable<QRadioButton>())
            QTest::mouseClick(option, Qt::LeftButton);
    }
    void ChangeTab()
    {
        if (Chance(4))
            console_.GoTo(Pick(std::vector{Tab::Eq, Tab::Eq, Tab::OutputTrim, Tab::FormatSelection}));
    }
    void Shortcut()
    {
        console_.Key(Pick(std::vector{Qt::Key_M, Qt::Key_7, Qt::Key_G, Qt::Key_L, Qt::Key_P, Qt::Key_C,
                                      Qt::Key_Q, Qt::Key_R, Qt::Key_E}),
                     Qt::ControlModifier);
    }
    void TickPoll() { console_.TickIfActive("tmrPoll"); }
    void TouchPanel()
    {
        console_.unit.panel.level = Word(Number(110) - 5);
        console_.unit.panel.mute = Chance(2) ? True : False;
        console_.unit.panel.format = Word(Number(7));
        panelTouched_ = true;
    }
    void FailSometimes()
    {
        if (Chance(3))
            console_.unit.FailNext(std::nullopt, Status(1 << Number(11)), 1 + Number(7));
    }
    void PullCable()
    {
        if (Chance(6))
            console_.unit.panel.plugged = false;
    }
    void Connect()
    {
        console_.unit.panel.plugged = true;
        if (!OnLine())
            console_.Key(Qt::Key_F1);
    }
    void ToggleUpload()
    {
        if (Chance(3))
            console_.Trigger("mnuAuto");
    }
    void SetByCode()
    {
        if (LevelSlider *slider = AnyUsable<LevelSlider>())
            slider->setValue(Number(slider->maximum() + 1));
    }
    void ReadBack()
    {
        if (Chance(4) && console_.Action("mnuRef")->isEnabled())
            console_.Trigger("mnuRef");
    }
    void New()
    {
        if (Chance(20))
            console_.Trigger("mnuNew");
    }
    void ExplicitUpload() { console_.Key(Qt::Key_F2); }

    // What must hold at rest.
    QString WrongPair(const QString &slider, const QString &field, int byte, int zeroAt, int perDecibel) const
    {
        auto *scl = console_.Find<QSlider>(slider);
        auto *lbl = console_.Find<LevelField>(field);
        const int position = std::min(byte, scl->maximum());
        const QString text = QString::number(double(zeroAt - position) / perDecibel, 'f', perDecibel - 1);
        if (scl->value() != position)
            return QString("%1 stands at %2, its byte is %3").arg(slider).arg(scl->value()).arg(byte);
        return lbl->text() == text ? "" : QString("%1 shows %2, not %3").arg(field, lbl->text(), text);
    }
    QString WrongTrims() const
    {
        for (int channel = 0; channel < ChannelCount; ++channel) {
            const int byte = console_.room.Audio.ChannelTrim[std::size_t(channel)];
            const QString wrong =
                WrongPair(Member("sclPNG", channel), Member("lblPNG", channel), byte, 12, 2);
            if (!wrong.isEmpty())
                return wrong;
        }
        return {};
    }
    QString WrongChannel() const
    {
        int channel = 0;
        while (!console_.Find<QPushButton>(Member("cmdEQChan", channel))->font().bold())
            ++channel;
        const ChannelSlice &slice = console_.room.Audio.ChannelEq[std::size_t(channel)];
        QStringList wrong{WrongPair("sclBass", "lblBass", slice.BassLevel, 10, 1),
                          WrongPair("sclTreb", "lblTreb", slice.TrebleLevel, 10, 1)};
        const ChannelKind kind = KindOf(channel);
        if (kind == ChannelKind::Subwoofer) {
            wrong << WrongPair("sclGain", "lblGain", slice.Band[SubGain], 12, 2);
            for (const auto &[name, byte] : {std::pair("optBand", SubWidth), std::pair("optSPB", SubFreq)})
                if (!console_.Find<QRadioButton>(Member(name, slice.Band[byte]))->isChecked())
                    wrong << QString("%1 shows another choice").arg(name);
        }
        const bool screen = kind == ChannelKind::Screen;
        const int bands = kind == ChannelKind::Subwoofer ? 0 : screen ? BandCount : SurroundBandCount;
        for (int band = 0; band < bands; ++band)
            wrong << WrongPair(Member(screen ? "sclA" : "sclB", band),
                               Member(screen ? "lblBand" : "lblLSRSv", band), slice.Band[std::size_t(band)],
                               12, 2);
        wrong.removeAll("");
        return wrong.join("; ");
    }
    QString WrongFader() const
    {
        const int level = console_.room.FaderLevel;
        const QString text = QString::number(level / 10.0, 'f', 1);
        for (const LevelField *field : console_.window->findChildren<LevelField *>())
            if (field->objectName().startsWith("lblVol") && field->text() != text)
                return field->objectName() + " shows " + field->text() + ", not " + text;
        for (const LevelSlider *slider : console_.window->findChildren<LevelSlider *>("sclVol"))
            if (slider->value() != std::clamp(99 - level, 0, 99))
                return QString("a fader stands at %1").arg(slider->value());
        return {};
    }
    QString WrongMute() const
    {
        const QString caption = console_.room.MuteState != False ? "Un-Mute" : "Mute";
        for (const char *name : {"cmdMute", "cmdMute2", "cmdMute3", "cmdMute4", "cmdMute5"})
            if (console_.Find<QPushButton>(name)->text() != caption)
                return QString("%1 does not read %2").arg(name, caption);
        return {};
    }
    /// How many values of the settings the unit really does not hold.
    int Unsent() const
    {
        RoomSettings held = console_.room;
        held.Audio = console_.unit.audio;
        held.System = console_.unit.system;
        held.FaderLevel = console_.unit.panel.level;
        held.MuteState = console_.unit.panel.mute;
        held.CurrentFormat = console_.unit.panel.format;
        return int(Compare(console_.room, held).size());
    }
    QString WrongSent()
    {
        // What was turned on the unit's own panel is known when it has been polled.
        if (OnLine() && console_.unit.panel.plugged) {
            console_.unit.ForgetFailures();
            console_.Tick("tmrPoll");
            panelTouched_ = false;
        }
        if (panelTouched_)
            return {};
        const QString shown = console_.Find<QLabel>("lblSent")->text();
        const int count = Unsent();
        const QString truth = count == 0 ? "All sent" : QString::number(count) + " change";
        return shown.startsWith(truth) ? ""
                                       : QString("lblSent reads \"%1\", %2 differ").arg(shown).arg(count);
    }

    std::mt19937 random_;
    ConsoleUnderTest console_{kelvo::OnLine, Tab::FormatSelection};
    QPointer<LevelSlider> dragged_;
    int heldKey_ = 0;
    std::map<std::string, int> calls_;
    int connectionErrors_ = 0;
    int lastAct_ = 0;
    bool panelTouched_ = false;
};

} // namespace

class RandomWalkTest : public QObject {
    Q_OBJECT

  private slots:
    void screenRecordAndUnitAgreeAtEveryRest();
};

/// `KELVO_WALK` is the number of acts (a long walk runs under the sanitizers), `KELVO_WALK_SEED` the seed.
void RandomWalkTest::screenRecordAndUnitAgreeAtEveryRest()
{
    const int acts = FromEnvironment("KELVO_WALK", 3000);
    const int seed = FromEnvironment("KELVO_WALK_SEED", 1);
    Walk walk{unsigned(seed)};
    constexpr int ActsBetweenRests = 20;
    constexpr int ActsBetweenUploads = 400;
    for (int act = 1; act <= acts; ++act) {
        walk.Step();
        QString wrong;
        if (act % ActsBetweenRests == 0)
            wrong = walk.Rest();
        if (wrong.isEmpty() && act % ActsBetweenUploads == 0)
            wrong = walk.UploadAll();
        if (!wrong.isEmpty() || QTest::currentTestFailed())
            QFAIL(qPrintable(
                QString("seed %1, act %2 (%3): %4").arg(seed).arg(act).arg(walk.LastAct()).arg(wrong)));
    }
    // A walk that never got anywhere would prove nothing.
    for (const char *operation : {"SetAudio", "SetVol", "SetPink", "SetMute", "InitDLL"})
        QVERIFY2(walk.CallsOf(operation) > acts / 500, operation);
}

QTEST_MAIN(RandomWalkTest)
#include "randomwalk_test.moc"
