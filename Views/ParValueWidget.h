#pragma once

#include "korvane_export.h"

#include <QColor>
#include <QList>
#include <QStringList>
#include <QVariantList>
#include <QWidget>

// The values of a panel, "name = value unit", in columns of a fixed number of rows.
class KORVANE_EXPORT ParValueWidget : public QWidget
{
    Q_OBJECT
public:
    explicit ParValueWidget(QWidget* parent = nullptr);

    void setParameters(const QStringList& names, const QStringList& units, int rowsPerColumn);
    void setValues(const QVariantList& values, const QList<QColor>& colors);
    // The row texts as they are painted.
    QStringList texts() const;
    int rowsPerColumn() const { return m_rowsPerColumn; }
    static QString valueText(const QVariant& value);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int columnCount() const;

    QStringList m_names;
    QStringList m_units;
    QVariantList m_values;
    QList<QColor> m_colors;
    int m_rowsPerColumn = 1;
};
