#include "ui/compare/differencestable.h"

#include "ui/compare/differencesmodel.h"
#include "ui/compare/messages.h"
#include "ui/controls/named.h"

#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

namespace kelvo {

namespace {

// Characters of usual width.
constexpr int SectionWidth = 14;
constexpr int SettingWidth = 32;
constexpr int LeastValueWidth = 14;

constexpr int RowMargin = 6; // pixels

} // namespace

DifferencesTable::DifferencesTable()
    : model_(new DifferencesModel(this)),
      shown_(new SortedDifferences(*model_, this))
{
    Named(this, "tblDiffers");
    setAccessibleName(messages::TableName);
    shown_->setFilterKeyColumn(-1); // any column
    shown_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    shown_->setSourceModel(model_);
    setModel(shown_);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setWordWrap(false);
    setTabKeyNavigation(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + RowMargin);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionResizeMode(LeftColumn, QHeaderView::Stretch);
    horizontalHeader()->setSectionResizeMode(RightColumn, QHeaderView::Stretch);
    const int character = fontMetrics().averageCharWidth();
    setColumnWidth(SectionColumn, SectionWidth * character);
    setColumnWidth(SettingColumn, SettingWidth * character);
    horizontalHeader()->setMinimumSectionSize(LeastValueWidth * character);
    setMinimumWidth((SectionWidth + SettingWidth + 2 * LeastValueWidth) * character +
                    verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
    sortByColumn(SectionColumn, Qt::AscendingOrder);
    setSortingEnabled(true);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &DifferencesTable::ChoiceChanged);
}

void DifferencesTable::Show(const std::vector<DifferenceRow> &rows, const QString &left, const QString &right)
{
    const std::vector<FieldId> chosen = ChosenFields();
    const int scrolled = verticalScrollBar()->value();
    model_->Show(rows, left, right);
    Choose(chosen);
    verticalScrollBar()->setValue(scrolled);
    emit ChoiceChanged(); // a reset clears the choice without a word
}

void DifferencesTable::Filter(const QString &text)
{
    shown_->setFilterFixedString(text);
}

std::vector<DifferenceRow> DifferencesTable::ShownRows() const
{
    std::vector<DifferenceRow> rows;
    for (int row = 0; row < shown_->rowCount(); ++row)
        rows.push_back(model_->Rows()[std::size_t(shown_->mapToSource(shown_->index(row, 0)).row())]);
    return rows;
}

std::vector<FieldId> DifferencesTable::ChosenFields() const
{
    std::vector<FieldId> fields;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        fields.push_back(model_->Rows()[std::size_t(shown_->mapToSource(index).row())].field);
    std::ranges::sort(fields);
    return fields;
}

void DifferencesTable::Choose(const std::vector<FieldId> &fields)
{
    QItemSelection selection;
    for (int row = 0; row < shown_->rowCount(); ++row) {
        const QModelIndex index = shown_->index(row, 0);
        const auto source = std::size_t(shown_->mapToSource(index).row());
        if (std::ranges::binary_search(fields, model_->Rows()[source].field))
            selection.select(index, index);
    }
    selectionModel()->select(selection, QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace kelvo
