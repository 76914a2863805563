#pragma once

#include "Views/BaseParView.h"

class AChanParAndSplitter;
class AChanParItem;
class AChanParModel;

// The parameter panels of the analogue rows.
class KORVANE_EXPORT AChanParListView : public BaseParView, public RowItems
{
    Q_OBJECT
public:
    // Row heights of the two modes for a row of that many panels.
    static int compactRowHeight(int panels);
    static int fullRowHeight(int panels);

    explicit AChanParListView(QWidget* parent = nullptr);

    QWidget* createItem(int index, int channel) override;
    void addSignalToItem(QWidget* item, int channel) override;
    void removeSignalFromItem(QWidget* item, int channel) override;
    void updateItemSelection(QWidget* item, int channel, bool isSelected) override;
    void rowsChanged() override;

    int countPanelsInChannel(int channel) const;
    void setCompactMode(int channel);
    void setFullMode(int channel);
    void updateMinHeightInSplitter(int channel, int minHeight);
    // The model of the channel's panel, or null.
    AChanParModel* aChanParModel(int channel) const;
    // The models in the order of the rows and their panels.
    AChanParModel* aChanParModelInOrder(int index) const;
    AChanParItem* chanParItemInOrder(int index) const;
    QVariantList getAnalogValues(int channel) const;
    QList<AChanParModel*> prepareModelList() const;

public slots:
    void slotUpdateAParModels();
    void slotSplitChannel(AChanParAndSplitter* row);
    void refreshValues() override;
    void refreshParameters() override;
};
