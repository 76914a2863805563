#include "OscillogramMergeTask.h"

#include "Views/OscillogramMerge/HorisontalMergeHandler.h"
#include "Views/OscillogramMerge/VerticalMergeHandler.h"

#include <algorithm>

OscillogramMergeTask::OscillogramMergeTask(QObject* parent) : Task(parent)
{
}

OscillogramMergeTask::~OscillogramMergeTask() = default;

std::unique_ptr<MergeHandler> OscillogramMergeTask::createHandler(int mergeType, int verticalMergeMode)
{
    if (mergeType == Horisontal)
        return std::make_unique<HorisontalMergeHandler>();
    if (mergeType != Vertical)
        return nullptr;
    switch (verticalMergeMode) {
    case TriggerTime:
        return std::make_unique<TriggerTimeMergeHandler>();
    case AstronomicalTime:
        return std::make_unique<AstronomicalTimeMergeHandler>();
    case FirstFailure:
        return std::make_unique<FirstFailureMergeHandler>();
    default:
        return std::make_unique<FirstReportMergeHandler>();
    }
}

void OscillogramMergeTask::sortOscillograms()
{
    std::stable_sort(m_oscillograms.begin(), m_oscillograms.end(),
        [](const QSharedPointer<Oscillogram>& a, const QSharedPointer<Oscillogram>& b) {
            return a->beginTime() < b->beginTime();
        });
}

void OscillogramMergeTask::setupGluingChannels()
{
    sortOscillograms();
    if (m_oscillograms.isEmpty())
        return;
    const QSharedPointer<Oscillogram> first = m_oscillograms.first();
    for (int c = 0; c < first->countOfAnalogChannels(); ++c)
        addMergeItem(QSharedPointer<MergeItem>::create(first, first->analogChannel(c), c));
    for (int c = 0; c < first->countOfDigitalChannels(); ++c)
        addMergeItem(QSharedPointer<MergeItem>::create(first, first->digitalChannel(c), c));
}

void OscillogramMergeTask::calculateTargetSampleRate()
{
    bool first = true;
    for (const auto& source : qAsConst(m_oscillograms)) {
        if (first || source->sampleRate() < m_targetRate)
            m_targetRate = source->sampleRate();
        first = false;
    }
    m_handler->setTargetRate(m_targetRate);
}

QSharedPointer<Oscillogram> OscillogramMergeTask::work()
{
    if (m_mergeType == Vertical)
        sortOscillograms();
    m_handler = createHandler(m_mergeType, m_verticalMergeMode);
    if (!m_handler)
        throw new IllegalArgumentException(tr("Неизвестный тип объединения осциллограмм."));
    m_handler->setSources(m_oscillograms);
    m_handler->setItems(m_mergeItems);
    m_handler->setName(m_oscillogramName);
    m_handler->setCancelCheck([this]() { checkCancelled(); });
    connect(m_handler.get(), &MergeHandler::progressChanged, this, &TaskBase::updateProgress,
        Qt::DirectConnection);
    calculateTargetSampleRate();
    for (const auto& source : qAsConst(m_oscillograms)) {
        if (!source.dynamicCast<SimpleOscillogram>())
            throw new IllegalArgumentException(
                tr("Эта версия поддерживает объединение только осциллограмм Wv2, Comtrade и осциллограмм, "
                   "обединенных из Wv2 или Comtrade."));
    }
    m_handler->calculateBeginTime();
    updateProgress(tr("Расчет параметров склейки"), 0.0);
    m_handler->calculateCounts();
    m_handler->countChannels();
    updateProgress(tr("Выделение памяти"), 0.0);
    if (!m_handler->reserveStore())
        throw new IllegalArgumentException(tr("Объединенная осциллограмма слишком велика."));
    updateProgress(tr("Склейка"), 0.0);
    m_handler->layOut();
    checkCancelled();
    m_handler->copySamples();
    checkCancelled();
    updateProgress(tr("Подготовка результата"), 0.0);
    buildTargetChannels();
    buildTargetOscillogram();
    checkCancelled();
    return m_target;
}

void OscillogramMergeTask::buildTargetChannels()
{
    const QSharedPointer<OscillogramData> store = m_handler->store();
    const QList<bool> fits = m_handler->fits();
    std::array<int, 6> next {};
    m_analogChannels.clear();
    m_digitalChannels.clear();
    for (const auto& item : qAsConst(m_mergeItems)) {
        QString name = item->channel()->name();
        const int source = m_oscillograms.indexOf(item->oscillogram());
        if (source >= 0 && source < fits.size() && !fits[source])
            name += tr(" (Не соответствует временной шкале!)");
        QSharedPointer<Channel> copy;
        if (const auto analog = item->channel().dynamicCast<AnalogChannel>()) {
            const auto channel = QSharedPointer<AnalogChannel>::create(*analog);
            m_analogChannels.append(channel);
            copy = channel;
        } else if (const auto digital = item->channel().dynamicCast<DigitalChannel>()) {
            const auto channel = QSharedPointer<DigitalChannel>::create(*digital);
            m_digitalChannels.append(channel);
            copy = channel;
        } else {
            continue;
        }
        copy->setName(name);
        copy->setData(store);
        copy->setDataCount(1);
        const int type = copy->dataType();
        if (type > DT::None && type <= DT::Digital)
            copy->setDataOffset(next[type]++);
    }
}

void OscillogramMergeTask::buildTargetOscillogram()
{
    m_target = QSharedPointer<SimpleOscillogram>::create();
    m_target->setFilename(m_oscillogramName);
    m_target->setData(m_handler->store());
    m_target->setSampleRate(m_targetRate);
    if (!m_oscillograms.isEmpty()) {
        const Oscillogram& first = *m_oscillograms.first();
        m_target->setHeaderFileContent(first.headerContent());
        m_target->setDeviceName(first.deviceName());
        m_target->setStationName(first.stationName());
    }
    m_target->setTriggerTime(m_handler->targetBeginTime());
    m_target->setAnalogChannels(m_analogChannels);
    m_target->setDigitalChannels(m_digitalChannels);
    m_target->setCountOfPreFailureSamples(m_handler->preCount());
    m_target->setCountOfPostFailureSamples(m_target->countOfSamples() - m_handler->preCount());
    m_target->setMergedWaves(m_handler->mergedWaves());
    m_target->setFailures(m_handler->failures());
    m_target->setLines(m_handler->lines());
    m_target->setRasObjects(m_handler->rasObjects());
}
