#pragma once

#include "korvane_export.h"

#include <QWidget>

class AChanParModel;
class ParValueWidget;
class SignalNameWidget;

// The panel of one channel inside an analogue row: a strip in the trace's colour, the name line
// and the values of the channel's parameter model, which the frame owns.
class KORVANE_EXPORT AChanParItemFrame : public QWidget
{
    Q_OBJECT
public:
    // Height of a panel beyond the first in full mode: a name line and the value rows.
    static int extraPanelHeight();
    // Height of one panel in compact mode: the name line and one value.
    static int compactPanelHeight();

    AChanParItemFrame(AChanParModel* model, QWidget* parent = nullptr);

    AChanParModel* model() const { return m_model; }
    int channelNumber() const;
    ParValueWidget* valueWidget() const { return m_values; }
    SignalNameWidget* nameWidget() const { return m_name; }

    // Re-reads names and the shown parameters, e.g. after the settings changed.
    void refreshParameters();
    // Measures at the sample and shows the values.
    void refreshValues(int sample);
    // Compact panels show only the parameter the settings choose for that mode.
    void setCompact(bool compact);
    bool isCompact() const { return m_compact; }
    void setSelected(bool selected);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // The index among the shown parameters that a compact panel keeps.
    int compactIndex() const;
    QColor traceColor() const;

    AChanParModel* m_model;
    SignalNameWidget* m_name;
    ParValueWidget* m_values;
    bool m_compact = false;
    bool m_selected = false;
};
