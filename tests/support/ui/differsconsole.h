#pragma once

#include "support/ui/samplesettings.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QWindow>

namespace kelvo {

/// The console with "What Differs" and "Verify the Unit" in reach.
struct DiffersConsole : ConsoleUnderTest {
    using ConsoleUnderTest::ConsoleUnderTest;

    QDialog *Differs() const { return Find<QDialog>("frmDiffers"); }
    QTableView *Table(const char *form = "frmDiffers") const
    {
        return Find<QDialog>(form)->findChild<QTableView *>("tblDiffers");
    }

    void OpenDiffers()
    {
        Key(Qt::Key_F9);
        ToFront(Differs());
    }

    /// A window manager moves the focus in its own time, and may still be busy with the window before.
    static void ToFront(QWidget *front)
    {
        constexpr int Settled = 30; ///< milliseconds
        const auto stays = [front] {
            front->activateWindow();
            QTest::qWait(Settled);
            return front->isActiveWindow() && QApplication::focusWindow() == front->windowHandle();
        };
        QTRY_VERIFY(stays() && stays());
    }

    /// In the main window, which comes to the front.
    void TypeBeside(const char *field, const char *text)
    {
        ToFront(window.get());
        Type(field, text);
    }

    /// "E.Q | Center, 1 kHz | 0.0 dB | +2.5 dB", in the order shown.
    QStringList Rows(const char *form = "frmDiffers") const
    {
        QCoreApplication::processEvents();
        const QAbstractItemModel *model = Table(form)->model();
        QStringList rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model->columnCount(); ++column)
                cells += model->index(row, column).data().toString();
            rows += cells.join(" | ");
        }
        return rows;
    }

    QString Total() const
    {
        QCoreApplication::processEvents();
        return Find<QLabel>("lblDiffers")->text();
    }

    void ClickRow(int row, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QTableView *table = Table();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers,
                          table->visualRect(table->model()->index(row, 0)).center());
    }

    void ClickHeading(int column) const
    {
        QHeaderView *header = Table()->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 20, header->height() / 2});
    }

    QStringList Choices(const char *list) const
    {
        QStringList items;
        const auto *box = Find<QComboBox>(list);
        for (int index = 0; index < box->count(); ++index)
            items += box->itemText(index);
        return items;
    }
};

/// Three trims are moved: by 1 dB, 6.5 dB and 2 dB. The unit's are 0.0, -1.0, +0.5, -1.0, 0.0 and +1.5 dB.
inline void MoveThreeTrims(const ConsoleUnderTest &console)
{
    console.Type("lblPNG(0)", "1.0");
    console.Type("lblPNG(2)", "-6.0");
    console.Type("lblPNG(4)", "2.0");
}

inline const QString LeftTrim = "Output Trim | Left, output trim | +1.0 dB | 0.0 dB";
inline const QString CenterTrim = "Output Trim | Center, output trim | -6.0 dB | +0.5 dB";
inline const QString RightTrim = "Output Trim | Right, output trim | +2.0 dB | 0.0 dB";

} // namespace kelvo
