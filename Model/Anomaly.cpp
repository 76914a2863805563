#include "Anomaly.h"

AnomalyData::AnomalyData(int startSample, int endSample) : m_startSample(startSample), m_endSample(endSample)
{
}
