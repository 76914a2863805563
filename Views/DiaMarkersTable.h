#pragma once

#include "Views/Painters/Markers.h"
#include "korvane_export.h"

#include <QDialog>
#include <QSharedPointer>

class QTableView;
class MarkersTableModel;

// The table of all markers with the values they froze.
class KORVANE_EXPORT DiaMarkersTable : public QDialog
{
    Q_OBJECT
public:
    explicit DiaMarkersTable(QWidget* parent = nullptr);

    void setMarkers(const QSharedPointer<Markers>& markers);
    MarkersTableModel* model() const { return m_model; }

    // Shows the table, or an information box when there is no marker yet.
    static void showMarkers(const QSharedPointer<Markers>& markers, QWidget* parent);

private:
    QTableView* m_table = nullptr;
    MarkersTableModel* m_model = nullptr;
};
