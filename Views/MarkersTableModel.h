#pragma once

#include "Views/Painters/Markers.h"
#include "korvane_export.h"

#include <QAbstractTableModel>
#include <QSharedPointer>

// The markers as a table: a row per parameter of each channel, a column per marker, the first
// column holding the row labels and the first row the times of the markers.
class KORVANE_EXPORT MarkersTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit MarkersTableModel(const QSharedPointer<Markers>& markers, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    struct Row
    {
        int channel = -1;
        int parameter = -1;
        QString label;
    };

    QSharedPointer<Markers> m_markers;
    QList<Row> m_rows;
};
