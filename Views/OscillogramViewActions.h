#pragma once

#include "korvane_export.h"

// The actions of the record view: the tool bar in its order, then the context menu of an analogue
// row. Texts are translated in the context of OscillogramView.
namespace ViewAction {

enum Id {
    Save,
    SaveAs,
    ExportCsv,
    Info,
    Settings,
    Print,
    ScaleDown,
    ScaleUp,
    FitXScale,
    CompactMode,
    FullMode,
    Primary,
    Secondary,
    MeasureStart,
    MeasureFinish,
    MeasureRemoveLatest,
    MeasureRemoveAll,
    MarkerAdd,
    MarkersClear,
    MarkersTable,
    ChannelList,
    SelectedChannels,
    AllChannels,
    ChangingDiscretes,
    ClearSelection,
    FailList,
    SetTrigger,
    PrevSecond,
    NextSecond,
    ShapeForm,
    SignalOffset,
    Hodograph,
    ExportHodographGdf,
    ExportHodographCsv,
    CalculatedSignals,
    Merge,
    LineVectorDiagram,
    SelectedVectorDiagram,
    Spectrum,
    ChannelBehavior,
    SelectColor,
    ClearColor,
    Count
};

struct Description
{
    const char* text;
    const char* toolTip; // null: the text
    const char* shortcut; // null: none
    const char* icon; // null: none
    const char* activeIcon; // null: the icon's name with "_2"
    bool separatorBefore;
    bool checkable;
    // Whether the tool behind the action exists; an action without its tool stays out of the bars.
    bool available;
};

KORVANE_EXPORT const Description& description(Id id);

} // namespace ViewAction
