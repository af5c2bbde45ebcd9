#include "ui/compare/differencesmodel.h"

#include "ui/compare/messages.h"

#include <QGuiApplication>
#include <QPalette>

namespace kelvo {

namespace {

QString Text(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

QString CellText(const DifferenceRow &row, int column)
{
    const std::array<std::string_view, DifferencesColumnCount> cells{row.section, row.setting, row.left,
                                                                     row.right};
    return Text(cells[std::size_t(column)]);
}

bool OfValue(int column)
{
    return column == LeftColumn || column == RightColumn;
}

} // namespace

void DifferencesModel::Show(const std::vector<DifferenceRow> &rows, const QString &left, const QString &right)
{
    beginResetModel();
    rows_ = rows;
    left_ = left;
    right_ = right;
    endResetModel();
}

int DifferencesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int DifferencesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : DifferencesColumnCount;
}

QVariant DifferencesModel::data(const QModelIndex &index, int role) const
{
    const DifferenceRow &row = rows_[std::size_t(index.row())];
    if (role == Qt::DisplayRole)
        return CellText(row, index.column());
    // A narrow column cuts a text. As rich text, so that none is taken for it that only looks like it.
    if (role == Qt::ToolTipRole)
        return "<span>" + CellText(row, index.column()).toHtmlEscaped() + "</span>";
    if (role == Qt::BackgroundRole && row.IsLive())
        return QGuiApplication::palette().alternateBase();
    return {};
}

QVariant DifferencesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    // The first click on a value's heading brings the largest differences to the top.
    if (role == Qt::InitialSortOrderRole)
        return OfValue(section) ? Qt::DescendingOrder : Qt::AscendingOrder;
    if (role == Qt::TextAlignmentRole)
        return Qt::AlignLeft;
    if (role != Qt::DisplayRole)
        return {};
    const std::array<QString, DifferencesColumnCount> headings{messages::SectionColumn,
                                                               messages::SettingColumn, left_, right_};
    return headings[std::size_t(section)];
}

Qt::ItemFlags DifferencesModel::flags(const QModelIndex &index) const
{
    // A live value cannot be taken: it would be heard at once.
    return rows_[std::size_t(index.row())].IsLive() ? Qt::ItemIsEnabled
                                                    : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

bool SortedDifferences::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const DifferenceRow &one = model_.Rows()[std::size_t(left.row())];
    const DifferenceRow &other = model_.Rows()[std::size_t(right.row())];
    if (one.IsLive() != other.IsLive())
        return one.IsLive() == (sortOrder() == Qt::DescendingOrder);
    if (OfValue(left.column()) && one.size != other.size)
        return one.size < other.size;
    // Among equals the order of the settings, whichever way sizes go.
    return OfValue(left.column()) && sortOrder() == Qt::DescendingOrder ? one.field > other.field
                                                                        : one.field < other.field;
}

} // namespace kelvo
