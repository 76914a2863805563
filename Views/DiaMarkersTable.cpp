#include "Views/DiaMarkersTable.h"

#include "Views/MarkersTableModel.h"

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QTableView>
#include <QVBoxLayout>

DiaMarkersTable::DiaMarkersTable(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Таблица маркеров"));
    auto* layout = new QVBoxLayout(this);
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tv_mTable"));
    layout->addWidget(m_table);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->setObjectName(QStringLiteral("buttonBox"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    layout->addWidget(buttons);
}

void DiaMarkersTable::setMarkers(const QSharedPointer<Markers>& markers)
{
    auto* model = new MarkersTableModel(markers, this);
    m_table->setModel(model);
    delete m_model;
    m_model = model;
    m_table->resizeColumnsToContents();
}

void DiaMarkersTable::showMarkers(const QSharedPointer<Markers>& markers, QWidget* parent)
{
    if (!markers || markers->items().isEmpty()) {
        QMessageBox::information(parent, tr("Таблица маркеров"), tr("Нет установленных маркеров"));
        return;
    }
    DiaMarkersTable dialog(parent);
    dialog.setMarkers(markers);
    dialog.exec();
}
