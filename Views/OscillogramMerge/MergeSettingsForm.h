#pragma once

#include "Views/OscillogramMerge/MergeItem.h"

#include <QPair>
#include <QWidget>

class OscillogramMergeTask;
class QButtonGroup;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

// The choices of a merge: which open records, joined by channels (with one of four alignments)
// or glued in time, which channels, and the new record's name. Done refuses impossible merges
// and tells why, keeping the form as it is.
class KORVANE_EXPORT MergeSettingsForm : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(MergeSettingsForm)
public:
    using NamedOscillogram = QPair<QString, QSharedPointer<Oscillogram>>;

    explicit MergeSettingsForm(QWidget* parent = nullptr);
    ~MergeSettingsForm() override;

    void setOscillograms(const QList<NamedOscillogram>& waves);
    // Ticks or clears a record of the list, as the user does.
    void setOscillogramChosen(int index, bool chosen);
    void setMergeType(int type);
    int mergeType() const { return m_mergeType; }
    void setVerticalMergeMode(int mode);
    int verticalMergeMode() const { return m_verticalMergeMode; }
    void setOscillogramName(const QString& name);
    QString oscillogramName() const;

    // The chosen records; for a gluing earliest first, the order the gluing takes them in.
    QList<QSharedPointer<Oscillogram>> chosenOscillograms() const;
    // The rows of the channel list: the union of the chosen records' channels, or for a gluing
    // the channels of the earliest record, which the user may tick or clear.
    QList<QSharedPointer<MergeItem>> channelItems() const { return m_items; }
    QList<QSharedPointer<MergeItem>> selectedItems() const;
    // A task set up with the choices; null for a merge type without a handler.
    OscillogramMergeTask* createTask(QObject* parent = nullptr) const;

    bool mergeAllowed() const { return m_mergeAllowed; }
    bool timesOverlap() const { return m_timesOverlap; }
    bool allHaveFailures() const { return m_allHaveFailures; }
    bool signalsSelected() const { return m_signalsSelected; }
    bool ratesDiffer() const { return m_ratesDiffer; }

    QPushButton* doneButton() const { return m_done; }
    QPushButton* cancelButton() const { return m_cancel; }
    QListWidget* oscillogramList() const { return m_oscillogramList; }
    QListWidget* channelList() const { return m_channelList; }

signals:
    // Every check has passed; the name is that of the new record.
    void sigDoneButtonTriggered(QString name);

public slots:
    void slotDone();

private:
    void buildLayout();
    QWidget* createTypeBox();
    void refreshChannels();
    void takeItemsBack();
    void updateFlags();
    void updateDescription();
    // The refusal of the first check that fails, or an empty text.
    QString refusal() const;
    bool confirmGluingOfDifferentRecords();
    bool confirmResampling();

    QList<NamedOscillogram> m_waves;
    QList<QSharedPointer<MergeItem>> m_items;
    int m_mergeType = 0;
    int m_verticalMergeMode = 0;
    bool m_mergeAllowed = true;
    bool m_timesOverlap = true;
    bool m_allHaveFailures = true;
    bool m_signalsSelected = false;
    bool m_ratesDiffer = false;

    QListWidget* m_oscillogramList;
    QButtonGroup* m_typeGroup;
    QRadioButton* m_vertical;
    QRadioButton* m_horisontal;
    QLabel* m_description;
    QComboBox* m_modeBox;
    QListWidget* m_channelList;
    QLineEdit* m_name;
    QPushButton* m_done;
    QPushButton* m_cancel;
};
