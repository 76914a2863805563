# Printing: the page composer, its worker, the preview and the option dialogs.
list(APPEND KORVANE_VIEWS_SOURCES
    Views/Print/OscPrintOptions.cpp
    Views/Print/PagePrinter.cpp
    Views/Print/PrintDia.cpp
    Views/Print/PrinterOptions.cpp
    Views/Print/PrintPreviewWidget.cpp
    Views/Print/PrintGeometry.cpp
    Views/Print/PrintOscillogramManager.cpp
    Views/Print/PrintRows.cpp
)
