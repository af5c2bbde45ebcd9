#pragma once

#include "edit/editor.h"

#include <QObject>
#include <QString>

namespace kelvo {

/// What runs that did not come to their end left behind: offered, newest first, until it is taken.
class Recovery : public QObject {
    Q_OBJECT

  public:
    /// `folder` of the journals.
    Recovery(Editor &editor, WallClock &clock, const QString &folder, QObject *parent);

    /// Reads what there is: at start, and when steps were left behind.
    void Look();
    /// "Bring back 12 changes of 21:04", of each.
    QStringList Offers() const;
    /// What the line under the lamp offers; "" once anything was done in this run.
    QString Offer();
    void Take(int which);
    /// What was taken, and not given back by an undo, is safe with this run.
    void Tidy();

  private:
    struct Taken {
        HeldJournal journal;
        std::size_t step;     ///< its number in the history; 0 = nothing differed
        bool inEffect = true; ///< as far as the history tells
    };

    QString NameOf(const LeftBehind &left) const;
    void FollowTaken();

    Editor &editor_;
    WallClock &clock_;
    std::string folder_;
    std::vector<LeftBehind> offered_;
    std::vector<Taken> taken_;
    bool untouched_ = true; ///< nothing was done yet that a careless click could spoil
};

} // namespace kelvo
