#include "Views/ListHelpers.h"

#include "Views/AChanParListView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowOrderCommand.h"
#include "Views/ScrollArea.h"

#include <QFontMetrics>
#include <QScrollBar>
#include <QUndoStack>

#include <algorithm>

RowItems::~RowItems() = default;

void RowItems::addSignalToItem(QWidget*, int)
{
}

void RowItems::removeSignalFromItem(QWidget*, int)
{
}

void RowItems::updateItemSelection(QWidget*, int, bool)
{
}

void RowItems::rowsChanged()
{
}

AListHelper::AListHelper(ScrollArea* area, RowItems* items) : m_area(area), m_items(items)
{
}

AListHelper::~AListHelper() = default;

void AListHelper::setModel(const QSharedPointer<OscillogramViewModel>& model, QObject* context)
{
    m_model = model;
    OscillogramViewModel* m = model.data();
    QObject::connect(m, &OscillogramViewModel::sigWaveChanged, context, [this] {
        m_previousRows = m_rows;
        m_previousAnalogCount = m_analogCount;
        repopulate();
    });
    QObject::connect(m, &OscillogramViewModel::sigRepopulateCalculatedWave, context,
        [this](int added) { onCalculatedWave(added); });
    QObject::connect(
        m, &OscillogramViewModel::sigAddChannel, context, [this](int index, int channel, int kind) {
            if (kind == this->kind())
                insertRow(index, channel);
        });
    QObject::connect(m, &OscillogramViewModel::sigDeleteChannel, context, [this](int channel, int kind) {
        if (kind == this->kind())
            deleteRow(channel);
    });
    QObject::connect(m, &OscillogramViewModel::sigAddSignalInChannelPlot, context,
        [this](int target, int channel) { addSignal(target, channel); });
    QObject::connect(m, &OscillogramViewModel::sigRemoveSignalInChannelPlot, context,
        [this](int, int channel) { removeSignal(channel); });
    QObject::connect(
        RowOrderRelay::of(m), &RowOrderRelay::rowsRequested, context, [this](int kind, const Rows& rows) {
            if (kind == this->kind())
                repopulateWithOverlays(rows);
        });
    QObject::connect(m, &OscillogramViewModel::channelRowsFilterChanged, context,
        [this](const QVector<bool>& filter) { updateChannelVisible(filter); });
    QObject::connect(m, &OscillogramViewModel::channelRowHeightChanged, context,
        [this](int channel, int height) { updateChannelRowHeight(channel, height); });
    QObject::connect(m, &OscillogramViewModel::channelSelectionChanged, context,
        [this](int channel, bool selected) { updateChannelSelection(channel, selected); });

    // Both lists of a kind scroll together: the model holds the position.
    QScrollBar* bar = m_area->verticalScrollBar();
    if (isAnalogList()) {
        QObject::connect(
            bar, &QScrollBar::valueChanged, m, &OscillogramViewModel::setAnalogVerticalScrollValue);
        QObject::connect(
            m, &OscillogramViewModel::analogVerticalScrollValueChanged, bar, &QScrollBar::setValue);
    } else {
        QObject::connect(
            bar, &QScrollBar::valueChanged, m, &OscillogramViewModel::setDigitalVerticalScrollValue);
        QObject::connect(
            m, &OscillogramViewModel::digitalVerticalScrollValueChanged, bar, &QScrollBar::setValue);
    }
    if (m->oscillogram())
        repopulate();
}

int AListHelper::rowOf(int channel) const
{
    for (std::size_t r = 0; r < m_rows.size(); ++r) {
        if (std::find(m_rows[r].begin(), m_rows[r].end(), channel) != m_rows[r].end())
            return int(r);
    }
    return -1;
}

QWidget* AListHelper::itemAttachedToDescriptor(int channel) const
{
    return m_area->rowWidget(rowOf(channel));
}

std::vector<int> AListHelper::containedChannelIds() const
{
    std::vector<int> ids;
    for (const auto& row : m_rows)
        ids.insert(ids.end(), row.begin(), row.end());
    return ids;
}

int AListHelper::findInsertIndex(const DropInfo& drop) const
{
    const int target = rowOf(drop.targetChannel);
    if (target < 0)
        return int(m_rows.size());
    return drop.pos == DRAG_POS_LOWER ? target + 1 : target;
}

bool AListHelper::isOwnChannel(int channel) const
{
    return m_model
        && (isAnalogList() ? m_model->isAnalogChannel(channel) : m_model->isDigitalChannel(channel));
}

std::vector<int> AListHelper::ownChannels() const
{
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    std::vector<int> channels;
    for (int c = 0; record && c < record->countOfAnalogChannels(); ++c)
        channels.push_back(c);
    return channels;
}

void AListHelper::repopulate(const std::optional<std::vector<int>>& order)
{
    Rows rows;
    for (int channel : order ? *order : ownChannels())
        rows.push_back({ channel });
    rebuild(rows);
}

void AListHelper::repopulateWithOverlays(const Rows& rows)
{
    rebuild(rows);
}

void AListHelper::rebuild(const Rows& rows)
{
    m_area->deleteAllRows();
    m_rows.clear();
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    m_analogCount = record ? record->countOfAnalogChannels() : 0;
    for (const auto& row : rows) {
        if (row.empty() || !isOwnChannel(row.front()))
            continue;
        const int index = int(m_rows.size());
        m_rows.push_back({ row.front() });
        m_area->insertRow(index, m_items->createItem(index, row.front()));
        for (std::size_t i = 1; i < row.size(); ++i)
            addSignal(row.front(), row[i]);
        applyRowState(index);
    }
    m_area->relayout();
    m_items->rowsChanged();
}

void AListHelper::onCalculatedWave(int added)
{
    Rows rows = m_previousRows;
    // Discrete channels are numbered after the analogue ones, so the new analogue channels move them.
    for (auto& row : rows) {
        for (int& channel : row)
            channel += channel >= m_previousAnalogCount ? added : 0;
    }
    const auto record = m_model->oscillogram();
    const int analogs = record ? record->countOfAnalogChannels() : 0;
    for (int c = analogs - added; isAnalogList() && c < analogs; ++c)
        rows.push_back({ c });
    rebuild(rows);
}

void AListHelper::applyRowState(int index)
{
    const auto& row = m_rows[std::size_t(index)];
    m_area->setRowHeight(index, rowHeightFor(row));
    const bool visible = std::any_of(row.begin(), row.end(),
        [this](int c) { return m_model->channelRowsFilter().isEmpty() || m_model->isChannelVisible(c); });
    m_area->setRowVisible(index, visible);
}

void AListHelper::insertRow(int index, int channel)
{
    index = qBound(0, index, int(m_rows.size()));
    m_rows.insert(m_rows.begin() + index, { channel });
    m_area->insertRow(index, m_items->createItem(index, channel));
    applyRowState(index);
    m_area->relayout();
    m_items->rowsChanged();
}

void AListHelper::deleteRow(int channel)
{
    const int index = rowOf(channel);
    if (index < 0)
        return;
    m_rows.erase(m_rows.begin() + index);
    m_area->deleteRow(index);
    m_area->relayout();
    m_items->rowsChanged();
}

void AListHelper::addSignal(int targetChannel, int channel)
{
    const int index = rowOf(targetChannel);
    if (index < 0 || !isOwnChannel(channel) || rowOf(channel) >= 0)
        return;
    m_rows[std::size_t(index)].push_back(channel);
    m_items->addSignalToItem(m_area->rowWidget(index), channel);
    applyRowState(index);
    m_area->relayout();
    m_items->rowsChanged();
}

void AListHelper::removeSignal(int channel)
{
    const int index = rowOf(channel);
    if (index < 0 || m_rows[std::size_t(index)].size() < 2)
        return;
    auto& row = m_rows[std::size_t(index)];
    row.erase(std::find(row.begin(), row.end(), channel));
    m_items->removeSignalFromItem(m_area->rowWidget(index), channel);
    applyRowState(index);
    m_area->relayout();
    m_items->rowsChanged();
}

namespace {
// The rows without the channel; a row left empty goes.
AListHelper::Rows withoutChannel(const AListHelper::Rows& rows, int channel)
{
    AListHelper::Rows result;
    for (auto row : rows) {
        row.erase(std::remove(row.begin(), row.end(), channel), row.end());
        if (!row.empty())
            result.push_back(row);
    }
    return result;
}

int rowIn(const AListHelper::Rows& rows, int channel)
{
    for (std::size_t r = 0; r < rows.size(); ++r) {
        if (std::find(rows[r].begin(), rows[r].end(), channel) != rows[r].end())
            return int(r);
    }
    return -1;
}
} // namespace

AListHelper::Rows AListHelper::moved(const Rows& rows, const DropInfo& drop)
{
    if (drop.draggedChannel == drop.targetChannel || rowIn(rows, drop.draggedChannel) < 0
        || rowIn(rows, drop.targetChannel) < 0)
        return rows;
    Rows result = withoutChannel(rows, drop.draggedChannel);
    const int target = rowIn(result, drop.targetChannel);
    const int index = drop.pos == DRAG_POS_LOWER ? target + 1 : target;
    result.insert(result.begin() + index, { drop.draggedChannel });
    return result;
}

AListHelper::Rows AListHelper::overlaid(const Rows& rows, int targetChannel, int channel)
{
    const int from = rowIn(rows, channel);
    if (from < 0 || rowIn(rows, targetChannel) < 0 || from == rowIn(rows, targetChannel))
        return rows;
    Rows result = withoutChannel(rows, channel);
    result[std::size_t(rowIn(result, targetChannel))].push_back(channel);
    return result;
}

AListHelper::Rows AListHelper::split(const Rows& rows, int rowIndex)
{
    if (rowIndex < 0 || rowIndex >= int(rows.size()) || rows[std::size_t(rowIndex)].size() < 2)
        return rows;
    Rows result = rows;
    const int leaving = result[std::size_t(rowIndex)].back();
    result[std::size_t(rowIndex)].pop_back();
    result.insert(result.begin() + rowIndex + 1, { leaving });
    return result;
}

void AListHelper::requestMove(const DropInfo& drop)
{
    if (isOwnChannel(drop.draggedChannel) && isOwnChannel(drop.targetChannel))
        requestRows(moved(m_rows, drop));
}

void AListHelper::requestOverlay(int targetChannel, int channel)
{
    if (isAnalogList() && isOwnChannel(channel))
        requestRows(overlaid(m_rows, targetChannel, channel));
}

void AListHelper::requestSplit(int rowIndex)
{
    requestRows(split(m_rows, rowIndex));
}

void AListHelper::requestRows(const Rows& rows)
{
    if (rows == m_rows)
        return;
    auto* command = new RowOrderCommand(m_model, kind(), m_rows, rows);
    if (m_undoStack) {
        m_undoStack->push(command);
        return;
    }
    command->redo();
    delete command;
}

void AListHelper::updateChannelVisible(const QVector<bool>&)
{
    for (int i = 0; i < int(m_rows.size()); ++i)
        applyRowState(i);
    m_area->relayout();
}

void AListHelper::updateChannelRowHeight(int channel, int height)
{
    const int index = rowOf(channel);
    if (index < 0 || m_rows[std::size_t(index)].front() != channel)
        return;
    m_area->setRowHeight(index, qMax(height, panelsHeight(int(m_rows[std::size_t(index)].size()))));
    m_area->relayout();
}

void AListHelper::updateChannelSelection(int channel, bool isSelected)
{
    const int index = rowOf(channel);
    if (index >= 0)
        m_items->updateItemSelection(m_area->rowWidget(index), channel, isSelected);
}

void AListHelper::setChannelInverted(OscillogramViewModel& model, int channel, bool inverted)
{
    const auto record = model.oscillogram();
    if (!record)
        return;
    QSharedPointer<Channel> target;
    if (model.isAnalogChannel(channel))
        target = record->analogChannel(channel);
    else if (model.isDigitalChannel(channel))
        target = record->digitalChannel(channel - record->countOfAnalogChannels());
    if (!target || target->isInverted() == inverted)
        return;
    target->setIsInverted(inverted);
    emit model.repaintWave();
}

int AListHelper::rowHeightFor(const std::vector<int>& row) const
{
    const int height = m_model->chanRowHeight(row.front());
    return qMax(
        height > 0 ? height : OscillogramViewModel::defaultRowHeight(), panelsHeight(int(row.size())));
}

int AListHelper::panelsHeight(int panels) const
{
    // A row of one channel may be as low as its minimum; one of several keeps room for each panel.
    if (panels < 2)
        return 0;
    return m_model->isCompactMode() ? AChanParListView::compactRowHeight(panels)
                                    : AChanParListView::fullRowHeight(panels);
}

int DListHelper::rowHeight()
{
    // Room for the name line and a little air: the bar of a discrete trace needs no more.
    return QFontMetrics(QFont()).height() + 6;
}

std::vector<int> DListHelper::ownChannels() const
{
    const auto record = model() ? model()->oscillogram() : QSharedPointer<Oscillogram>();
    std::vector<int> channels;
    for (int c = 0; record && c < record->countOfDigitalChannels(); ++c)
        channels.push_back(record->countOfAnalogChannels() + c);
    return channels;
}

int DListHelper::panelsHeight(int) const
{
    return 0;
}

int DListHelper::rowHeightFor(const std::vector<int>&) const
{
    return rowHeight();
}
