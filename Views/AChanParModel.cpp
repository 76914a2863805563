#include "Views/AChanParModel.h"

AChanParModel::AChanParModel(QObject* parent) : QObject(parent)
{
}

AChanParModel::~AChanParModel() = default;
