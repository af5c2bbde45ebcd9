#pragma once

#include "report/differences.h"

#include <QTableView>

class QSortFilterProxyModel;

namespace kelvo {

class DifferencesModel;

/// The table `tblDiffers`: a row a setting that differs, in the order of the settings or, after a click on a
/// value's heading, by the size of the difference. Live values stand last and cannot be chosen.
class DifferencesTable : public QTableView {
    Q_OBJECT

  public:
    DifferencesTable();

    /// The headings name the sides. Chosen rows stay chosen where they still differ.
    void Show(const std::vector<DifferenceRow> &rows, const QString &left, const QString &right);
    /// Only rows with this text in any column are shown.
    void Filter(const QString &text);

    std::vector<DifferenceRow> ShownRows() const; ///< in their order
    std::vector<FieldId> ChosenFields() const;    ///< in the order of the rows

  signals:
    void ChoiceChanged();

  private:
    void Choose(const std::vector<FieldId> &fields);

    DifferencesModel *model_;
    QSortFilterProxyModel *shown_;
};

} // namespace kelvo
