# Sources of Views/, relative to the project root.
set(KORVANE_VIEWS_SOURCES
    Views/AChanParModel.cpp
    Views/DiaMarkersTable.cpp
    Views/MarkersTableModel.cpp
    Views/OscillogramViewModel.cpp
    Views/TimeMeasureMode.cpp
    Views/XScale.cpp
    Views/Painters/AnalogPainter.cpp
    Views/Painters/ChannelRenderer.cpp
    Views/Painters/DigitalPainter.cpp
    Views/Painters/DrawPrimitives.cpp
    Views/Painters/Markers.cpp
    Views/Painters/PixelBuffer.cpp
    Views/Painters/TimeLayers.cpp
    Views/Painters/ValuesPainter.cpp
)
