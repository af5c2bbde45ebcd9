#pragma once

#include "support/ui/boxanswers.h"
#include "support/ui/editedroom.h"
#include "support/ui/hands.h"
#include "ui/controls/levelpair.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kelvo {

/// A window with bass and treble (neighbours), a lone gain pair, three bands, a button, a list and tabs. What
/// the pairs store and send is written down in order.
class LevelWindow : public EditedRoom, public QWidget, public Hands {
  public:
    LevelWindow()
    {
        auto *rows = new QVBoxLayout(this);
        first = new QPushButton("first");
        list = new QComboBox;
        list->addItems({"one", "two"});
        tabs = new QTabWidget;
        auto *page = new QWidget;
        auto *columns = new QHBoxLayout(page);
        bass = Add(columns, ShelfRule, field::Bass(Left));
        treble = Add(columns, ShelfRule, field::Treble(Left));
        gain = Add(columns, HalfDecibelRule, field::Band(Subwoofer, SubGain));
        for (int band = 0; band < int(bands.size()); ++band)
            bands[std::size_t(band)] = Add(columns, HalfDecibelRule, field::Band(Left, band));
        EditedRoom::show = [this](const Changed &changed) {
            for (LevelPair *pair : pairs_)
                pair->Show(changed);
        };
        tabs->addTab(page, "&Levels");
        tabs->addTab(new QWidget, "&Other");
        rows->addWidget(first);
        rows->addWidget(list);
        rows->addWidget(tabs);
        connect(first, &QPushButton::clicked, this, [this] { events << "click"; });
        JoinNeighbours(std::array{bass, treble});
        JoinNeighbours(bands);
        resize(700, 400);
        QWidget::show();
        first->setFocus();
        (void)QTest::qWaitForWindowActive(this);
    }

    /// As the main window does: a slider that is held is let go while there is still something to tell.
    ~LevelWindow() override { hide(); }

    QStringList Events()
    {
        QStringList taken;
        taken.swap(events);
        return taken;
    }

    /// As the unit or a file would.
    void ShowStored(FieldId field, int stored)
    {
        RoomSettings read = room;
        Set(read, field, stored);
        editor.Adopt(std::move(read), Source::Update);
    }
    void ShowGain(int stored) { ShowStored(field::Band(Subwoofer, SubGain), stored); }

    BoxAnswers boxes;
    QPushButton *first;
    QComboBox *list;
    QTabWidget *tabs;
    LevelPair *bass, *treble, *gain;
    std::array<LevelPair *, 3> bands{};

  protected:
    QWidget *Window() const override { return const_cast<LevelWindow *>(this); }

  private:
    LevelPair *Add(QHBoxLayout *columns, const LevelRule &rule, FieldId field)
    {
        auto *pair = new LevelPair(field, rule, editor, entries, {"lbl", "scl"}, this);
        auto *column = new QVBoxLayout;
        column->addWidget(pair->Slider());
        column->addWidget(pair->Field());
        columns->addLayout(column);
        pairs_.push_back(pair);
        return pair;
    }

    std::vector<LevelPair *> pairs_;
};

} // namespace kelvo
