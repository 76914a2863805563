#include "CalcLib/TCalc.h"

#include <utility>

TCalc::TCalc(std::string name, std::string title) : m_name(std::move(name)), m_title(std::move(title))
{
}

TCalc::~TCalc() = default;

int TCalc::init(const DevConfig&)
{
    return 0;
}

int TCalc::calc(CalcInput&)
{
    return 0;
}
