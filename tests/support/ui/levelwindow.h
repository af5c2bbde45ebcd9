#pragma once

#include "support/ui/boxanswers.h"
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
class LevelWindow : public QWidget, public Hands {
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
        bass = Add(columns, ShelfRule, "Bass");
        treble = Add(columns, ShelfRule, "Treb");
        gain = Add(columns, HalfDecibelRule, "Gain");
        for (LevelPair *&band : bands)
            band = Add(columns, HalfDecibelRule, "Band");
        tabs->addTab(page, "&Levels");
        tabs->addTab(new QWidget, "&Other");
        rows->addWidget(first);
        rows->addWidget(list);
        rows->addWidget(tabs);
        connect(first, &QPushButton::clicked, this, [this] { events << "click"; });
        JoinNeighbours(std::array{bass, treble});
        JoinNeighbours(bands);
        resize(700, 400);
        show();
        first->setFocus();
        (void)QTest::qWaitForWindowActive(this);
    }

    QStringList Events()
    {
        QStringList taken;
        taken.swap(events);
        return taken;
    }

    BoxAnswers boxes;
    EntryWindow entries;
    QPushButton *first;
    QComboBox *list;
    QTabWidget *tabs;
    LevelPair *bass, *treble, *gain;
    std::array<LevelPair *, 3> bands{};
    QStringList events;

  protected:
    QWidget *Window() const override { return const_cast<LevelWindow *>(this); }

  private:
    LevelPair *Add(QHBoxLayout *columns, const LevelRule &rule, const QString &name)
    {
        auto *pair =
            new LevelPair(rule, entries, {"lbl", "scl"},
                          {[this, name](int position) { events << name + "=" + QString::number(position); },
                           [this] { events << "send"; }},
                          this);
        auto *column = new QVBoxLayout;
        column->addWidget(pair->Slider());
        column->addWidget(pair->Field());
        columns->addLayout(column);
        return pair;
    }
};

} // namespace kelvo
