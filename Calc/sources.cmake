# Sources of Calc/, relative to the project root.
set(KORVANE_CALC_SOURCES
    Calc/CalcModule.cpp
    Calc/LineCalc.cpp
    Calc/UnitForCalcSignal.cpp
)
