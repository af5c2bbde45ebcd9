#pragma once

#include "report/differences.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

namespace kelvo {

enum DifferencesColumn { SectionColumn, SettingColumn, LeftColumn, RightColumn, DifferencesColumnCount };

/// The rows of a comparison as a table of texts.
class DifferencesModel : public QAbstractTableModel {
    Q_OBJECT

  public:
    using QAbstractTableModel::QAbstractTableModel;

    void Show(const std::vector<DifferenceRow> &rows, const QString &left, const QString &right);
    const std::vector<DifferenceRow> &Rows() const { return rows_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

  private:
    std::vector<DifferenceRow> rows_;
    QString left_, right_;
};

/// The same, filtered, and sorted by field or by size; live values last either way.
class SortedDifferences : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    SortedDifferences(const DifferencesModel &model, QObject *parent)
        : QSortFilterProxyModel(parent),
          model_(model)
    {
    }

  protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

  private:
    const DifferencesModel &model_;
};

} // namespace kelvo
