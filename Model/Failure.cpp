#include "Failure.h"

Failure::Failure(const QString& reason, int blockNum) : m_blockNum(blockNum), m_reason(reason)
{
}
