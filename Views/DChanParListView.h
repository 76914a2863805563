#pragma once

#include "Views/BaseParView.h"

class ChanParItem;

// The names of the discrete rows.
class KORVANE_EXPORT DChanParListView : public BaseParView, public RowItems
{
    Q_OBJECT
public:
    explicit DChanParListView(QWidget* parent = nullptr);

    QWidget* createItem(int index, int channel) override;
    void updateItemSelection(QWidget* item, int channel, bool isSelected) override;
    ChanParItem* chanParItemInOrder(int index) const;
};
