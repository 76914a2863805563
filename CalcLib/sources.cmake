# Sources of CalcLib/, relative to the project root. Standard C++ only.
set(KORVANE_CALCLIB_SOURCES
    CalcLib/Comtrade.cpp
    CalcLib/ComtradeCfg.cpp
    CalcLib/ComtradeDat.cpp
    CalcLib/ComtradeDataBuffer.cpp
    CalcLib/ComtradeFiles.cpp
    CalcLib/ComtradeHdr.cpp
    CalcLib/ComtradeInf.cpp
    CalcLib/ComtradeTables.cpp
    CalcLib/ComtradeText.cpp
    CalcLib/IniFile.cpp
)
