list(APPEND KORVANE_VIEWS_SOURCES
    Views/OscillogramMerge/DiaMergeSetup.cpp
    Views/OscillogramMerge/HorisontalMergeHandler.cpp
    Views/OscillogramMerge/MergeChecks.cpp
    Views/OscillogramMerge/MergeHandler.cpp
    Views/OscillogramMerge/MergeItem.cpp
    Views/OscillogramMerge/MergeSettingsForm.cpp
    Views/OscillogramMerge/OscillogramMergeTask.cpp
    Views/OscillogramMerge/SampleCopier.cpp
    Views/OscillogramMerge/VerticalMergeHandler.cpp
    Views/OscillogramMerge/VerticalMergeHandlers.cpp
)
