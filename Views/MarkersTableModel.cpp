#include "Views/MarkersTableModel.h"

MarkersTableModel::MarkersTableModel(const QSharedPointer<Markers>& markers, QObject* parent)
    : QAbstractTableModel(parent), m_markers(markers)
{
    m_rows.append({ -1, -1, tr("Время") });
    const QList<int> channels = m_markers->tableChannels();
    const QList<QString>& titles = m_markers->channelTitles();
    for (int t = 0; t < channels.size(); ++t) {
        const int channel = channels[t];
        const QStringList names = m_markers->longNames().value(channel);
        const int count = m_markers->parameterCounts().value(channel);
        for (int p = 0; p < count; ++p)
            m_rows.append({ channel, p, titles.value(t) + QStringLiteral(" - ") + names.value(p) });
    }
}

int MarkersTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows.size();
}

int MarkersTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_markers->items().size() + 1;
}

QVariant MarkersTableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid() || index.row() >= m_rows.size())
        return QVariant();
    const Row& row = m_rows[index.row()];
    if (index.column() == 0)
        return row.label;
    const int marker = index.column() - 1;
    if (marker >= m_markers->items().size())
        return QVariant();
    const Markers::Item& item = m_markers->items()[marker];
    if (row.channel < 0)
        return item.time;
    const QVariantList values = item.values.value(row.channel);
    if (row.parameter >= values.size())
        return QVariant();
    return Markers::valueText(values[row.parameter]);
}
