#pragma once

#include "CalcLib/CalcInput.h"
#include "CalcLib/DevConfig.h"
#include "korvane_export.h"

#include <string>

// The abstract calculator: a name, a title and its own copy of the configuration.
class KORVANE_EXPORT TCalc
{
public:
    TCalc(std::string name, std::string title);
    virtual ~TCalc();
    TCalc(const TCalc&) = delete;
    TCalc& operator=(const TCalc&) = delete;

    // Result 1 for success. The base does nothing.
    virtual int init(const DevConfig& config);
    // Result 1 for success unless a calculator says otherwise. The base does nothing.
    virtual int calc(CalcInput& input);

    const std::string& name() const { return m_name; }
    const std::string& title() const { return m_title; }
    const DevConfig& config() const { return m_config; }
    // Takes the configuration without building anything anew.
    void setConfig(const DevConfig& config) { m_config = config; }

protected:
    std::string m_name;
    std::string m_title;
    DevConfig m_config;
};
