<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru">
<context>
    <name>AChanParItem</name>
    <message>
        <source>Показать панель инструментов</source>
        <translation>Show the tool bar</translation>
    </message>
    <message>
        <source>Разделить канал</source>
        <translation>Split the channel</translation>
    </message>
</context>
<context>
    <name>AnalogToolBar</name>
    <message>
        <source>Увеличить амплитуду сигнала</source>
        <translation>Increase the signal amplitude</translation>
    </message>
    <message>
        <source>Уменьшить амплитуду сигнала</source>
        <translation>Decrease the signal amplitude</translation>
    </message>
    <message>
        <source>Уменьшить область отображения </source>
        <translation>Shrink the display area </translation>
    </message>
    <message>
        <source>Увеличить область отображения </source>
        <translation>Enlarge the display area </translation>
    </message>
    <message>
        <source>Масштабировать сигнал к области отображения</source>
        <translation>Fit the signal to the display area</translation>
    </message>
    <message>
        <source>Отображение сигнала по умолчанию </source>
        <translation>Default signal display </translation>
    </message>
    <message>
        <source>Скрыть сигнал</source>
        <translation>Hide the signal</translation>
    </message>
    <message>
        <source>Инвертировать сигнал</source>
        <translation>Invert the signal</translation>
    </message>
</context>
<context>
    <name>ChannelPlotView</name>
    <message>
        <source>Информация об аномалии</source>
        <translation>Anomaly information</translation>
    </message>
</context>
<context>
    <name>ClcLoader</name>
    <message>
        <source>Не удалось октрыть файл</source>
        <translation>Could not open the file</translation>
    </message>
    <message>
        <source>Ошибка чтения, осциллограмма повреждена!</source>
        <translation>Read error, the record is damaged!</translation>
    </message>
    <message>
        <source>Не удалось прочитать заголовок файла</source>
        <translation>Could not read the file header</translation>
    </message>
    <message>
        <source>Ошибка чтения: файл не является файлом архивов</source>
        <translation>Read error: the file is not an archive file</translation>
    </message>
    <message>
        <source>Чтение информации о каналах</source>
        <translation>Reading the channel information</translation>
    </message>
    <message>
        <source>Чтение данных</source>
        <translation>Reading the data</translation>
    </message>
</context>
<context>
    <name>ComtradeLoader</name>
    <message>
        <source>Чтение файла данных</source>
        <translation>Reading the data file</translation>
    </message>
    <message>
        <source>пустые строки в файле данных пропущены</source>
        <translation>empty lines in the data file skipped</translation>
    </message>
    <message>
        <source>Прочитано в режиме совместимости: %1</source>
        <translation>Read in compatibility mode: %1</translation>
    </message>
    <message>
        <source>год ревизии не указан, прочитан как %1</source>
        <translation>revision year not given, read as %1</translation>
    </message>
    <message>
        <source>год ревизии &quot;%1&quot; прочитан как %2</source>
        <translation>revision year &quot;%1&quot; read as %2</translation>
    </message>
    <message>
        <source>Чтение файла конфигурации</source>
        <translation>Reading the configuration file</translation>
    </message>
    <message>
        <source>даты записаны в порядке месяц/день/год</source>
        <translation>dates written as month/day/year</translation>
    </message>
    <message>
        <source>Канал %1 содержит неправильное ps значение</source>
        <translation>Channel %1 has an invalid ps value</translation>
    </message>
    <message>
        <source>Не удалось прочитать информацию об аналоговом канале %1</source>
        <translation>Could not read the information of analog channel %1</translation>
    </message>
    <message>
        <source>Не удалось прочитать информацию о дискретном канале %1</source>
        <translation>Could not read the information of digital channel %1</translation>
    </message>
    <message>
        <source>дискретные каналы с %1 полями</source>
        <translation>digital channels with %1 fields</translation>
    </message>
    <message>
        <source>Ошибка чтения, осциллограмма повреждена!</source>
        <translation>Read error, the record is damaged!</translation>
    </message>
    <message>
        <source>%1 частот дискретизации, время каждой выборки взято из таблицы частот; вычислители считают по первой частоте, %2 Гц</source>
        <translation>%1 sampling rates, the time of each sample taken from the rate table; the calculators use the first rate, %2 Hz</translation>
    </message>
    <message>
        <source>Невозможно открыть файл с данными</source>
        <translation>Cannot open the data file</translation>
    </message>
    <message>
        <source>Не указано</source>
        <translation>Not given</translation>
    </message>
    <message>
        <source>кВ</source>
        <translation>kV</translation>
    </message>
    <message>
        <source>тексты в кодировке %1</source>
        <translation>texts in encoding %1</translation>
    </message>
    <message>
        <source>Не удалось открыть осциллограмму.</source>
        <translation>Could not open the record.</translation>
    </message>
    <message>
        <source>Извлечение архива</source>
        <translation>Extracting the archive</translation>
    </message>
    <message>
        <source>Невозможно распаковать архив</source>
        <translation>Cannot extract the archive</translation>
    </message>
    <message>
        <source>Zip архив не содержит файлов Comtrade</source>
        <translation>The ZIP archive holds no COMTRADE files</translation>
    </message>
    <message>
        <source>Архив содержит файл слишком большого размера</source>
        <translation>The archive holds a file that is too large</translation>
    </message>
    <message>
        <source>служебные файлы Mac в архиве пропущены</source>
        <translation>Mac system files in the archive skipped</translation>
    </message>
    <message>
        <source>Файл CFF не содержит разделов CFG и DAT</source>
        <translation>The CFF file has no CFG and DAT sections</translation>
    </message>
    <message>
        <source>файл в единой форме CFF</source>
        <translation>single-file CFF form</translation>
    </message>
</context>
<context>
    <name>ComtradeSaveSettings</name>
    <message>
        <source>Сохранить осциллограмму как</source>
        <translation>Save the record as</translation>
    </message>
    <message>
        <source>Осциллограмма будет сохранена в архив ZIP с файлами COMTRADE (.cfg, .dat, .hdr, .inf).</source>
        <translation>The record will be saved to a ZIP archive with COMTRADE files (.cfg, .dat, .hdr, .inf).</translation>
    </message>
    <message>
        <source>Формат COMTRADE</source>
        <translation>COMTRADE format</translation>
    </message>
    <message>
        <source>Стандарт:</source>
        <translation>Standard:</translation>
    </message>
    <message>
        <source>Ревизия:</source>
        <translation>Revision:</translation>
    </message>
    <message>
        <source>Формат данных:</source>
        <translation>Data format:</translation>
    </message>
    <message>
        <source>Часовой пояс</source>
        <translation>Time zone</translation>
    </message>
    <message>
        <source>        До сохранения (UTC+%1):</source>
        <translation>        Before saving (UTC+%1):</translation>
    </message>
    <message>
        <source>        До сохранения (UTC%1):</source>
        <translation>        Before saving (UTC%1):</translation>
    </message>
    <message>
        <source>Часовой пояс после сохранения:</source>
        <translation>Time zone after saving:</translation>
    </message>
    <message>
        <source>        После сохранения (UTC+%1):</source>
        <translation>        After saving (UTC+%1):</translation>
    </message>
    <message>
        <source>        После сохранения (UTC%1):</source>
        <translation>        After saving (UTC%1):</translation>
    </message>
    <message>
        <source>Объект %1</source>
        <translation>Facility %1</translation>
    </message>
    <message>
        <source>Территория:</source>
        <translation>Region:</translation>
    </message>
    <message>
        <source>Организация:</source>
        <translation>Organisation:</translation>
    </message>
    <message>
        <source>Наименование ПС или ЭС:</source>
        <translation>Substation or power plant name:</translation>
    </message>
    <message>
        <source>Устройство %1</source>
        <translation>Device %1</translation>
    </message>
    <message>
        <source>Идентификатор устройства:</source>
        <translation>Device ID:</translation>
    </message>
    <message>
        <source>Производитель:</source>
        <translation>Manufacturer:</translation>
    </message>
    <message>
        <source>Модель:</source>
        <translation>Model:</translation>
    </message>
    <message>
        <source>Серийный номер:</source>
        <translation>Serial number:</translation>
    </message>
    <message>
        <source>Версия аппаратной части:</source>
        <translation>Hardware version:</translation>
    </message>
    <message>
        <source>Версия программы:</source>
        <translation>Software version:</translation>
    </message>
    <message>
        <source>Имя файла COMTRADE:</source>
        <translation>COMTRADE file name:</translation>
    </message>
    <message>
        <source>Информация об осциллограмме</source>
        <translation>Record information</translation>
    </message>
    <message>
        <source>Станция:</source>
        <translation>Station:</translation>
    </message>
    <message>
        <source>Устройство:</source>
        <translation>Device:</translation>
    </message>
    <message>
        <source>Начало записи:</source>
        <translation>Record start:</translation>
    </message>
    <message>
        <source>Частота дискретизации:</source>
        <translation>Sampling rate:</translation>
    </message>
    <message>
        <source>%1 Гц</source>
        <translation>%1 Hz</translation>
    </message>
    <message>
        <source>Аналоговых сигналов:</source>
        <translation>Analog signals:</translation>
    </message>
    <message>
        <source>Дискретных сигналов:</source>
        <translation>Digital signals:</translation>
    </message>
    <message>
        <source>Не указано наименование организации. Продолжить сохранение?</source>
        <translation>No organisation name given. Continue saving?</translation>
    </message>
    <message>
        <source>Не указано наименование ПС или ЭС. Продолжить сохранение?</source>
        <translation>No substation or power plant name given. Continue saving?</translation>
    </message>
</context>
<context>
    <name>ComtradeSaver</name>
    <message>
        <source>Сохранение...</source>
        <translation>Saving...</translation>
    </message>
    <message>
        <source>Архивация...</source>
        <translation>Archiving...</translation>
    </message>
</context>
<context>
    <name>Converter</name>
    <message>
        <source>Неверное количество аргументов</source>
        <translation>Wrong number of arguments</translation>
    </message>
    <message>
        <source>Не существует осциллограммы %1</source>
        <translation>Record %1 does not exist</translation>
    </message>
    <message>
        <source>Не существует такого пути %1</source>
        <translation>Path %1 does not exist</translation>
    </message>
    <message>
        <source>Невозможно конвертировать в данный формат %1</source>
        <translation>Cannot convert to format %1</translation>
    </message>
    <message>
        <source>Невозможно открыть файл %1</source>
        <translation>Cannot open file %1</translation>
    </message>
    <message>
        <source>Неизвестная ошибка</source>
        <translation>Unknown error</translation>
    </message>
    <message>
        <source>Ошибка конвертации</source>
        <translation>Conversion error</translation>
    </message>
</context>
<context>
    <name>CsvSaveSettings</name>
    <message>
        <source>Экспорт осциллограммы как CSV</source>
        <translation>Export the record as CSV</translation>
    </message>
    <message>
        <source>Строка таблицы: номер, время от пуска в секундах и значения сигналов. В режимах ПА и Talvi пишутся действующие значения с шагом 8 и 4 мс.</source>
        <translation>A table row: number, time from the trigger in seconds and the signal values. The protection automation and Talvi modes write RMS values in steps of 8 and 4 ms.</translation>
    </message>
    <message>
        <source>Параметры CSV</source>
        <translation>CSV parameters</translation>
    </message>
    <message>
        <source>Без обработки</source>
        <translation>Raw samples</translation>
    </message>
    <message>
        <source>Режим ПА</source>
        <translation>Protection automation mode</translation>
    </message>
    <message>
        <source>Режим Talvi</source>
        <translation>Talvi mode</translation>
    </message>
    <message>
        <source>Точка с запятой</source>
        <translation>Semicolon</translation>
    </message>
    <message>
        <source>Запятая</source>
        <translation>Comma</translation>
    </message>
    <message>
        <source>Точка</source>
        <translation>Point</translation>
    </message>
    <message>
        <source>Режим:</source>
        <translation>Mode:</translation>
    </message>
    <message>
        <source>Разделитель CSV:</source>
        <translation>CSV separator:</translation>
    </message>
    <message>
        <source>Разделитель дробной части:</source>
        <translation>Decimal separator:</translation>
    </message>
    <message>
        <source>Ошибка</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Одновременное использование &lt;b&gt;запятой&lt;/b&gt; в качестве разделителя CSV и разделителя дробной части приведет к некорректному отображению и чтению данных</source>
        <translation>Using a &lt;b&gt;comma&lt;/b&gt; as both the CSV separator and the decimal separator will make the data display and read incorrectly</translation>
    </message>
</context>
<context>
    <name>CsvSaver</name>
    <message>
        <source>Сохранение...</source>
        <translation>Saving...</translation>
    </message>
</context>
<context>
    <name>CurrentTimePositionView</name>
    <message>
        <source>
%1мс</source>
        <translation>
%1 ms</translation>
    </message>
</context>
<context>
    <name>DiaMarkersTable</name>
    <message>
        <source>Таблица маркеров</source>
        <translation>Marker table</translation>
    </message>
    <message>
        <source>Нет установленных маркеров</source>
        <translation>No markers set</translation>
    </message>
</context>
<context>
    <name>DiaMergeSetup</name>
    <message>
        <source>Объединение осциллограмм</source>
        <translation>Merging records</translation>
    </message>
</context>
<context>
    <name>DiaSaveSettings</name>
    <message>
        <source>Путь:</source>
        <translation>Path:</translation>
    </message>
    <message>
        <source>Обзор...</source>
        <translation>Browse...</translation>
    </message>
    <message>
        <source>Только выделенные сигналы</source>
        <translation>Selected signals only</translation>
    </message>
    <message>
        <source>Только выделенный отрезок</source>
        <translation>Selected interval only</translation>
    </message>
    <message>
        <source>UTF-8 (рекомендуется)</source>
        <translation>UTF-8 (recommended)</translation>
    </message>
    <message>
        <source>Кодировка:</source>
        <translation>Encoding:</translation>
    </message>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Сохранение файла</source>
        <translation>Saving the file</translation>
    </message>
    <message>
        <source>Сохранить как</source>
        <translation>Save as</translation>
    </message>
    <message>
        <source>Ошибка сохранения: путь не указан</source>
        <translation>Save error: no path given</translation>
    </message>
    <message>
        <source>Файл %1 существует, перезаписать?</source>
        <translation>File %1 exists, overwrite it?</translation>
    </message>
</context>
<context>
    <name>DigitalChannelNameItem</name>
    <message>
        <source>Н.З.</source>
        <translation>N.C.</translation>
    </message>
    <message>
        <source>Н.О.</source>
        <translation>N.O.</translation>
    </message>
    <message>
        <source>Инвертировать сигнал</source>
        <translation>Invert the signal</translation>
    </message>
</context>
<context>
    <name>DigitalToolBar</name>
    <message>
        <source>Инвертировать сигнал</source>
        <translation>Invert the signal</translation>
    </message>
</context>
<context>
    <name>EasyLibKorvane</name>
    <message>
        <source>Загрузка файла</source>
        <translation>Loading the file</translation>
    </message>
    <message>
        <source>Формат файла не поддерживается.</source>
        <translation>The file format is not supported.</translation>
    </message>
    <message>
        <source>Формат файла не поддерживается</source>
        <translation>The file format is not supported</translation>
    </message>
    <message>
        <source>По причине: </source>
        <translation>Reason: </translation>
    </message>
</context>
<context>
    <name>FileFormatException</name>
    <message>
        <source>Неправильный формат файла</source>
        <translation>Invalid file format</translation>
    </message>
</context>
<context>
    <name>HorisontalMergeHandler</name>
    <message>
        <source>Склейка</source>
        <translation>Gluing</translation>
    </message>
</context>
<context>
    <name>KorvaneSettingsWidget</name>
    <message>
        <source>Тип вычислителя переменных сигналов:</source>
        <translation>Calculator for AC signals:</translation>
    </message>
    <message>
        <source>Тип вычислителя постоянных сигналов:</source>
        <translation>Calculator for DC signals:</translation>
    </message>
    <message>
        <source>Вычислитель 1</source>
        <translation>Calculator 1</translation>
    </message>
    <message>
        <source>Вычислитель 2</source>
        <translation>Calculator 2</translation>
    </message>
    <message>
        <source>Количество периодов для расчета (1 - 8):</source>
        <translation>Number of cycles to calculate over (1 - 8):</translation>
    </message>
    <message>
        <source>Задать промежуточное</source>
        <translation>Set an intermediate value</translation>
    </message>
    <message>
        <source>%1 мс</source>
        <translation>%1 ms</translation>
    </message>
    <message>
        <source>Нажмите, чтобы вернуться к расчету по целым периодам</source>
        <translation>Click to return to calculation over whole cycles</translation>
    </message>
    <message>
        <source>Ввод периода</source>
        <translation>Enter the period</translation>
    </message>
    <message>
        <source>Введите период для 
вычислителя, мс (20 - 80):</source>
        <translation>Enter the period for the 
calculator, ms (20 - 80):</translation>
    </message>
</context>
<context>
    <name>LineCalc</name>
    <message>
        <source>3U0</source>
        <translation>3U0</translation>
    </message>
    <message>
        <source>U0</source>
        <translation>U0</translation>
    </message>
    <message>
        <source>U1</source>
        <translation>U1</translation>
    </message>
    <message>
        <source>U2</source>
        <translation>U2</translation>
    </message>
    <message>
        <source>3I0</source>
        <translation>3I0</translation>
    </message>
    <message>
        <source>I0</source>
        <translation>I0</translation>
    </message>
    <message>
        <source>I1</source>
        <translation>I1</translation>
    </message>
    <message>
        <source>I2</source>
        <translation>I2</translation>
    </message>
    <message>
        <source>Uab</source>
        <translation>Uab</translation>
    </message>
    <message>
        <source>Ubc</source>
        <translation>Ubc</translation>
    </message>
    <message>
        <source>Uca</source>
        <translation>Uca</translation>
    </message>
    <message>
        <source>Iab</source>
        <translation>Iab</translation>
    </message>
    <message>
        <source>Ibc</source>
        <translation>Ibc</translation>
    </message>
    <message>
        <source>Ica</source>
        <translation>Ica</translation>
    </message>
    <message>
        <source>R0</source>
        <translation>R0</translation>
    </message>
    <message>
        <source>R1</source>
        <translation>R1</translation>
    </message>
    <message>
        <source>R2</source>
        <translation>R2</translation>
    </message>
    <message>
        <source>X0</source>
        <translation>X0</translation>
    </message>
    <message>
        <source>X1</source>
        <translation>X1</translation>
    </message>
    <message>
        <source>X2</source>
        <translation>X2</translation>
    </message>
    <message>
        <source>Ra</source>
        <translation>Ra</translation>
    </message>
    <message>
        <source>Xa</source>
        <translation>Xa</translation>
    </message>
    <message>
        <source>Rb</source>
        <translation>Rb</translation>
    </message>
    <message>
        <source>Xb</source>
        <translation>Xb</translation>
    </message>
    <message>
        <source>Rc</source>
        <translation>Rc</translation>
    </message>
    <message>
        <source>Xc</source>
        <translation>Xc</translation>
    </message>
    <message>
        <source>Pa</source>
        <translation>Pa</translation>
    </message>
    <message>
        <source>Qa</source>
        <translation>Qa</translation>
    </message>
    <message>
        <source>Pb</source>
        <translation>Pb</translation>
    </message>
    <message>
        <source>Qb</source>
        <translation>Qb</translation>
    </message>
    <message>
        <source>Pc</source>
        <translation>Pc</translation>
    </message>
    <message>
        <source>Qc</source>
        <translation>Qc</translation>
    </message>
    <message>
        <source>P сумма фаз</source>
        <translation>P three-phase</translation>
    </message>
    <message>
        <source>Q сумма фаз</source>
        <translation>Q three-phase</translation>
    </message>
    <message>
        <source>Za</source>
        <translation>Za</translation>
    </message>
    <message>
        <source>Zb</source>
        <translation>Zb</translation>
    </message>
    <message>
        <source>Zc</source>
        <translation>Zc</translation>
    </message>
    <message>
        <source>Частота</source>
        <translation>Frequency</translation>
    </message>
    <message>
        <source>Угол Ub-Ua</source>
        <translation>Angle Ub-Ua</translation>
    </message>
    <message>
        <source>Угол Uc-Ua</source>
        <translation>Angle Uc-Ua</translation>
    </message>
    <message>
        <source>Угол Ia-Ua</source>
        <translation>Angle Ia-Ua</translation>
    </message>
    <message>
        <source>Угол Ib-Ua</source>
        <translation>Angle Ib-Ua</translation>
    </message>
    <message>
        <source>Угол Ic-Ua</source>
        <translation>Angle Ic-Ua</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Korvane</source>
        <translation>Korvane</translation>
    </message>
    <message>
        <source>Осциллограммы (*.cfg *.zip *.wv2 *.clc);;Все файлы (*)</source>
        <translation>Records (*.cfg *.zip *.wv2 *.clc);;All files (*)</translation>
    </message>
    <message>
        <source>Файл</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Открыть...</source>
        <translation>Open...</translation>
    </message>
    <message>
        <source>Последние файлы</source>
        <translation>Recent files</translation>
    </message>
    <message>
        <source>Закрыть вкладку</source>
        <translation>Close the tab</translation>
    </message>
    <message>
        <source>Настройки...</source>
        <translation>Settings...</translation>
    </message>
    <message>
        <source>Выход</source>
        <translation>Exit</translation>
    </message>
    <message>
        <source>Открыть осциллограмму</source>
        <translation>Open a record</translation>
    </message>
    <message>
        <source>Закрытие осциллограммы</source>
        <translation>Closing the record</translation>
    </message>
    <message>
        <source>Осциллограмма %1 изменена. Сохранить изменения?</source>
        <translation>Record %1 has changed. Save the changes?</translation>
    </message>
</context>
<context>
    <name>MarkersTableModel</name>
    <message>
        <source>Время</source>
        <translation>Time</translation>
    </message>
</context>
<context>
    <name>MergeSettingsForm</name>
    <message>
        <source>Объединение</source>
        <translation>Joining</translation>
    </message>
    <message>
        <source>Склейка</source>
        <translation>Gluing</translation>
    </message>
    <message>
        <source>Готово</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>По первой осциллограмме</source>
        <translation>By the first record</translation>
    </message>
    <message>
        <source>По времени пуска</source>
        <translation>By the trigger time</translation>
    </message>
    <message>
        <source>По астрономическому времени</source>
        <translation>By astronomical time</translation>
    </message>
    <message>
        <source>По первому аварийному событию</source>
        <translation>By the first fault</translation>
    </message>
    <message>
        <source>Название новой осциллограммы</source>
        <translation>Name of the new record</translation>
    </message>
    <message>
        <source>Осциллограммы</source>
        <translation>Records</translation>
    </message>
    <message>
        <source>Сигналы</source>
        <translation>Signals</translation>
    </message>
    <message>
        <source>Название:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Способ объединения</source>
        <translation>Way of merging</translation>
    </message>
    <message>
        <source>Выравнивание:</source>
        <translation>Alignment:</translation>
    </message>
    <message>
        <source>Склейка одноименных каналов разных осциллограмм.</source>
        <translation>Gluing of the channels of the same name of different records.</translation>
    </message>
    <message>
        <source>Объединение всех каналов выбранных осциллограмм.</source>
        <translation>Joining all channels of the chosen records.</translation>
    </message>
    <message>
        <source>Осциллограммы не выбраны.</source>
        <translation>No records chosen.</translation>
    </message>
    <message>
        <source>Склейка осциллограмм невозможна. Осциллограммы расходятся по времени больше чем на 3 минуты.</source>
        <translation>The records cannot be glued. They lie more than 3 minutes apart in time.</translation>
    </message>
    <message>
        <source>Осциллограммы расходятся по времени, объединение по астрономическому времени невозможно.</source>
        <translation>The records lie apart in time; joining by astronomical time is impossible.</translation>
    </message>
    <message>
        <source>Объединение по точке аварийного события невозможно. Найдена осциллограмма без аварийного события.</source>
        <translation>Joining by the fault point is impossible. A record without a fault was found.</translation>
    </message>
    <message>
        <source>Сигналы не выбраны.</source>
        <translation>No signals chosen.</translation>
    </message>
    <message>
        <source>Проверка конфигурации</source>
        <translation>Configuration check</translation>
    </message>
    <message>
        <source>Конфигурации осциллограмм отличаются. Удовлетворительный результат склейки не гарантируется. <byte value="xd"/>
Продолжить склейку?</source>
        <translation>The configurations of the records differ. A good result of the gluing is not assured. <byte value="xd"/>
Go on with the gluing?</translation>
    </message>
    <message>
        <source>Внимание</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Частота дискретизации выбранных осциллограмм отличается. 
Будет выполнена передискретизация по наименьшему значению частоты.</source>
        <translation>The sample rates of the chosen records differ. 
They will be resampled to the lowest rate.</translation>
    </message>
    <message>
        <source>Введите название для новой осциллограммы.</source>
        <translation>Enter a name for the new record.</translation>
    </message>
</context>
<context>
    <name>OscPrintOptions</name>
    <message>
        <source>Имена сигналов на всех страницах</source>
        <translation>Signal names on all pages</translation>
    </message>
    <message>
        <source>Печатать маркеры</source>
        <translation>Print markers</translation>
    </message>
    <message>
        <source>Печатать замеры времени</source>
        <translation>Print time measures</translation>
    </message>
    <message>
        <source>Параметры печати</source>
        <translation>Print settings</translation>
    </message>
    <message>
        <source>Диапазон</source>
        <translation>Range</translation>
    </message>
    <message>
        <source>Масштаб по времени</source>
        <translation>Time scale</translation>
    </message>
    <message>
        <source>Вся осциллограмма</source>
        <translation>Whole oscillogram</translation>
    </message>
    <message>
        <source>%1 — %2 нс</source>
        <translation>%1 — %2 ns</translation>
    </message>
    <message>
        <source>&lt;center&gt;&lt;b&gt;При масштабе x%1 печать осциллограммы составит более %2 страниц&lt;/b&gt;&lt;br&gt;&lt;br&gt;Уменьшите масштаб&lt;/center&gt;</source>
        <translation>&lt;center&gt;&lt;b&gt;At scale x%1 the oscillogram would take more than %2 pages&lt;/b&gt;&lt;br&gt;&lt;br&gt;Reduce the scale&lt;/center&gt;</translation>
    </message>
</context>
<context>
    <name>OscillogramMergeTask</name>
    <message>
        <source>Неизвестный тип объединения осциллограмм.</source>
        <translation>Unknown kind of merging records.</translation>
    </message>
    <message>
        <source>Эта версия поддерживает объединение только осциллограмм Wv2, Comtrade и осциллограмм, обединенных из Wv2 или Comtrade.</source>
        <translation>This version merges only Wv2 and Comtrade records and records merged from Wv2 or Comtrade.</translation>
    </message>
    <message>
        <source>Расчет параметров склейки</source>
        <translation>Working out the merge</translation>
    </message>
    <message>
        <source>Выделение памяти</source>
        <translation>Allocating memory</translation>
    </message>
    <message>
        <source>Объединенная осциллограмма слишком велика.</source>
        <translation>The merged record is too large.</translation>
    </message>
    <message>
        <source>Склейка</source>
        <translation>Gluing</translation>
    </message>
    <message>
        <source>Подготовка результата</source>
        <translation>Preparing the result</translation>
    </message>
    <message>
        <source> (Не соответствует временной шкале!)</source>
        <translation> (Does not match the time scale!)</translation>
    </message>
</context>
<context>
    <name>OscillogramView</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>Сохранить осциллограмму</source>
        <translation>Save the record</translation>
    </message>
    <message>
        <source>Сохранить осциллограмму как...</source>
        <translation>Save the record as...</translation>
    </message>
    <message>
        <source>Экспорт осциллограммы как CSV...</source>
        <translation>Export the record as CSV...</translation>
    </message>
    <message>
        <source>Информация</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>Информация об осциллограмме</source>
        <translation>Record information</translation>
    </message>
    <message>
        <source>Настройки Korvane</source>
        <translation>Korvane settings</translation>
    </message>
    <message>
        <source>Печать осциллограммы</source>
        <translation>Print the record</translation>
    </message>
    <message>
        <source>Растянуть по времени</source>
        <translation>Stretch in time</translation>
    </message>
    <message>
        <source>Сжать по времени</source>
        <translation>Compress in time</translation>
    </message>
    <message>
        <source>Показать все</source>
        <translation>Show all</translation>
    </message>
    <message>
        <source>Подобрать масштаб, чтобы было видно всю запись от начала до конца</source>
        <translation>Fit the scale to show the whole record from start to end</translation>
    </message>
    <message>
        <source>Компактный режим</source>
        <translation>Compact mode</translation>
    </message>
    <message>
        <source>Переключить в компактный режим</source>
        <translation>Switch to compact mode</translation>
    </message>
    <message>
        <source>Полный режим</source>
        <translation>Full mode</translation>
    </message>
    <message>
        <source>Первичные значения</source>
        <translation>Primary values</translation>
    </message>
    <message>
        <source>Показывать первичные значения</source>
        <translation>Show primary values</translation>
    </message>
    <message>
        <source>Вторичные значения</source>
        <translation>Secondary values</translation>
    </message>
    <message>
        <source>Показывать вторичные значения</source>
        <translation>Show secondary values</translation>
    </message>
    <message>
        <source>Начало замера времени</source>
        <translation>Start a time measurement</translation>
    </message>
    <message>
        <source>Сохранить последний замер времени</source>
        <translation>Keep the last time measurement</translation>
    </message>
    <message>
        <source>Удалить последний замер времени</source>
        <translation>Delete the last time measurement</translation>
    </message>
    <message>
        <source>Удалить все замеры времени</source>
        <translation>Delete all time measurements</translation>
    </message>
    <message>
        <source>Установить маркер</source>
        <translation>Set a marker</translation>
    </message>
    <message>
        <source>Установить маркер в текущей временной метке</source>
        <translation>Set a marker at the current time stamp</translation>
    </message>
    <message>
        <source>Сбросить все маркеры</source>
        <translation>Clear all markers</translation>
    </message>
    <message>
        <source>Таблица маркеров</source>
        <translation>Marker table</translation>
    </message>
    <message>
        <source>Список сигналов</source>
        <translation>Signal list</translation>
    </message>
    <message>
        <source>Выделенные сигналы</source>
        <translation>Selected signals</translation>
    </message>
    <message>
        <source>Оставить только выделенные сигналы</source>
        <translation>Keep only the selected signals</translation>
    </message>
    <message>
        <source>Все сигналы</source>
        <translation>All signals</translation>
    </message>
    <message>
        <source>Показать все сигналы</source>
        <translation>Show all signals</translation>
    </message>
    <message>
        <source>Выделить изменявшиеся дискретные сигналы</source>
        <translation>Select the digital signals that changed</translation>
    </message>
    <message>
        <source>Отменить выделение</source>
        <translation>Clear the selection</translation>
    </message>
    <message>
        <source>Список аварий</source>
        <translation>Fault list</translation>
    </message>
    <message>
        <source>Установить ноль времени</source>
        <translation>Set time zero</translation>
    </message>
    <message>
        <source>В начало секунды</source>
        <translation>To the start of the second</translation>
    </message>
    <message>
        <source>В конец секунды</source>
        <translation>To the end of the second</translation>
    </message>
    <message>
        <source>Формы аналоговых сигналов</source>
        <translation>Analog signal waveforms</translation>
    </message>
    <message>
        <source>Смещение сигналов</source>
        <translation>Signal offset</translation>
    </message>
    <message>
        <source>Построить годограф</source>
        <translation>Plot the impedance locus</translation>
    </message>
    <message>
        <source>Экспорт годографа как GDF...</source>
        <translation>Export the locus as GDF...</translation>
    </message>
    <message>
        <source>Экспорт годографа как CSV...</source>
        <translation>Export the locus as CSV...</translation>
    </message>
    <message>
        <source>Вычислимые сигналы</source>
        <translation>Calculated signals</translation>
    </message>
    <message>
        <source>Объединить сигналы открытых осциллограмм в одну осциллограмму</source>
        <translation>Merge the signals of the open records into one record</translation>
    </message>
    <message>
        <source>Векторная диаграмма линии</source>
        <translation>Line phasor diagram</translation>
    </message>
    <message>
        <source>Векторная диаграмма выделенных</source>
        <translation>Phasor diagram of the selected</translation>
    </message>
    <message>
        <source>Векторная диаграмма выделенных каналов</source>
        <translation>Phasor diagram of the selected channels</translation>
    </message>
    <message>
        <source>Спектр</source>
        <translation>Spectrum</translation>
    </message>
    <message>
        <source>Поведение сигнала</source>
        <translation>Signal behaviour</translation>
    </message>
    <message>
        <source>Выбрать цвет</source>
        <translation>Choose a colour</translation>
    </message>
    <message>
        <source>Стандартный цвет</source>
        <translation>Default colour</translation>
    </message>
    <message>
        <source>Сигналы</source>
        <translation>Signals</translation>
    </message>
    <message>
        <source>Ни один сигнал не выбран</source>
        <translation>No signal selected</translation>
    </message>
    <message>
        <source>Сохранение осциллограммы</source>
        <translation>Saving the record</translation>
    </message>
    <message>
        <source>Осциллограмма сохранена в %1</source>
        <translation>Record saved to %1</translation>
    </message>
    <message>
        <source>Осциллограмма не сохранена в %1</source>
        <translation>Record not saved to %1</translation>
    </message>
</context>
<context>
    <name>OscillogramViewModel</name>
    <message>
        <source>Линия: %1
</source>
        <translation>Line: %1
</translation>
    </message>
    <message>
        <source>Канал: %2. %3
</source>
        <translation>Channel: %2. %3
</translation>
    </message>
    <message>
        <source>Временной отрезок: %1 ─ %2 мс
%3
</source>
        <translation>Time interval: %1 ─ %2 ms
%3
</translation>
    </message>
</context>
<context>
    <name>ParValueWidget</name>
    <message>
        <source>Отображаемое значение сигнала</source>
        <translation>Displayed signal value</translation>
    </message>
</context>
<context>
    <name>PrintDia</name>
    <message>
        <source>Предпросмотр печати</source>
        <translation>Print preview</translation>
    </message>
    <message>
        <source>По ширине</source>
        <translation>Fit width</translation>
    </message>
    <message>
        <source>На всю страницу</source>
        <translation>Fit page</translation>
    </message>
    <message>
        <source>Уменьшить</source>
        <translation>Zoom out</translation>
    </message>
    <message>
        <source>Увеличить</source>
        <translation>Zoom in</translation>
    </message>
    <message>
        <source>Первая страница</source>
        <translation>First page</translation>
    </message>
    <message>
        <source>Предыдущая страница</source>
        <translation>Previous page</translation>
    </message>
    <message>
        <source>Следующая страница</source>
        <translation>Next page</translation>
    </message>
    <message>
        <source>Последняя страница</source>
        <translation>Last page</translation>
    </message>
    <message>
        <source>Книжная</source>
        <translation>Portrait</translation>
    </message>
    <message>
        <source>Альбомная</source>
        <translation>Landscape</translation>
    </message>
    <message>
        <source>Настройки печати осциллограммы</source>
        <translation>Oscillogram print settings</translation>
    </message>
    <message>
        <source>Настройки принтера</source>
        <translation>Printer settings</translation>
    </message>
    <message>
        <source>Печать</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>Ошибка печати</source>
        <translation>Print error</translation>
    </message>
    <message>
        <source>Выберете принтер в окне &quot;Настройки принтера&quot;</source>
        <translation>Choose a printer in the &quot;Printer settings&quot; window</translation>
    </message>
</context>
<context>
    <name>PrintOscillogramManager</name>
    <message>
        <source>Ошибка печати</source>
        <translation>Print error</translation>
    </message>
    <message>
        <source>Возможная проблема с настройками принтера</source>
        <translation>Possibly a problem with the printer settings</translation>
    </message>
    <message>
        <source>Печать</source>
        <translation>Print</translation>
    </message>
    <message>
        <source>Печать в файл (PDF)...</source>
        <translation>Printing to file (PDF)...</translation>
    </message>
    <message>
        <source>Подготовка к печати...</source>
        <translation>Preparing to print...</translation>
    </message>
    <message>
        <source>Не удалось записать файл PDF: %1</source>
        <translation>Could not write the PDF file: %1</translation>
    </message>
</context>
<context>
    <name>PrinterOptions</name>
    <message>
        <source>мм</source>
        <translation>mm</translation>
    </message>
    <message>
        <source>Цветная печать</source>
        <translation>Colour print</translation>
    </message>
    <message>
        <source>Настройки принтера</source>
        <translation>Printer settings</translation>
    </message>
    <message>
        <source>Книжная</source>
        <translation>Portrait</translation>
    </message>
    <message>
        <source>Альбомная</source>
        <translation>Landscape</translation>
    </message>
    <message>
        <source>Левое</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>Правое</source>
        <translation>Right</translation>
    </message>
    <message>
        <source>Верхнее</source>
        <translation>Top</translation>
    </message>
    <message>
        <source>Нижнее</source>
        <translation>Bottom</translation>
    </message>
    <message>
        <source>Принтер</source>
        <translation>Printer</translation>
    </message>
    <message>
        <source>Файл</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Размер бумаги</source>
        <translation>Paper size</translation>
    </message>
    <message>
        <source>Ориентация</source>
        <translation>Orientation</translation>
    </message>
    <message>
        <source>Поля</source>
        <translation>Margins</translation>
    </message>
    <message>
        <source>Печать в файл (PDF)</source>
        <translation>Print to file (PDF)</translation>
    </message>
    <message>
        <source>Печать в файл: %1</source>
        <translation>Print to file: %1</translation>
    </message>
    <message>
        <source>Выбран принтер: %1</source>
        <translation>Printer: %1</translation>
    </message>
    <message>
        <source>Запись файла PDF</source>
        <translation>Save PDF file</translation>
    </message>
</context>
<context>
    <name>ProgressDialog</name>
    <message>
        <source>Загрузка</source>
        <translation>Loading</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>о названии станции, устройстве и стандарте</source>
        <translation>on the station name, device and standard</translation>
    </message>
    <message>
        <source>о количестве сигналов и их типе</source>
        <translation>on the number of signals and their types</translation>
    </message>
    <message>
        <source>о частоте линии</source>
        <translation>on the line frequency</translation>
    </message>
    <message>
        <source>о количестве частот дискретизации</source>
        <translation>on the number of sampling rates</translation>
    </message>
    <message>
        <source>о частоте дискретизации и количестве сэмплов</source>
        <translation>on the sampling rate and the number of samples</translation>
    </message>
    <message>
        <source>о формате хранения данных</source>
        <translation>on the data file type</translation>
    </message>
    <message>
        <source>о множителе временных меток</source>
        <translation>on the time stamp multiplier</translation>
    </message>
    <message>
        <source>о timezone</source>
        <translation>on the time zone</translation>
    </message>
    <message>
        <source>о дате и времени первой записи в файл</source>
        <translation>on the date and time of the first data point</translation>
    </message>
    <message>
        <source>, отсутствует дата первой запсии в файл</source>
        <translation>, the date of the first data point is missing</translation>
    </message>
    <message>
        <source>, отсутствует время первой запси в файл</source>
        <translation>, the time of the first data point is missing</translation>
    </message>
    <message>
        <source>о дате и времени срабатывания</source>
        <translation>on the date and time of the trigger point</translation>
    </message>
    <message>
        <source>, отсутствует дата срабатывания</source>
        <translation>, the trigger date is missing</translation>
    </message>
    <message>
        <source>, отсутствует время срабатывания</source>
        <translation>, the trigger time is missing</translation>
    </message>
    <message>
        <source>&apos;номер канала&apos;</source>
        <translation>&apos;channel index&apos;</translation>
    </message>
    <message>
        <source>&apos;название канала&apos;</source>
        <translation>&apos;channel name&apos;</translation>
    </message>
    <message>
        <source>&apos;номер фазы&apos;</source>
        <translation>&apos;phase identification&apos;</translation>
    </message>
    <message>
        <source>&apos;компонент схемы&apos;</source>
        <translation>&apos;circuit component&apos;</translation>
    </message>
    <message>
        <source>&apos;единицы измерения&apos;</source>
        <translation>&apos;channel units&apos;</translation>
    </message>
    <message>
        <source>&apos;множитель величины сигнала&apos;</source>
        <translation>&apos;channel multiplier&apos;</translation>
    </message>
    <message>
        <source>&apos;добавочное смещение&apos;</source>
        <translation>&apos;channel offset&apos;</translation>
    </message>
    <message>
        <source>&apos;задержка сигнала в канале&apos;</source>
        <translation>&apos;channel time skew&apos;</translation>
    </message>
    <message>
        <source>&apos;нижняя граница&apos;</source>
        <translation>&apos;minimum value&apos;</translation>
    </message>
    <message>
        <source>&apos;верхняя граница&apos;</source>
        <translation>&apos;maximum value&apos;</translation>
    </message>
    <message>
        <source>&apos;множитель коэффициента трансформации&apos;</source>
        <translation>&apos;primary ratio factor&apos;</translation>
    </message>
    <message>
        <source>&apos;делитель коэффициента трансформации&apos;</source>
        <translation>&apos;secondary ratio factor&apos;</translation>
    </message>
    <message>
        <source>&apos;первичное или вторичное значение&apos;</source>
        <translation>&apos;primary or secondary identifier&apos;</translation>
    </message>
    <message>
        <source>&apos;неверное количество параметров аналогового сигнала&apos;</source>
        <translation>&apos;wrong number of analog channel fields&apos;</translation>
    </message>
    <message>
        <source>&apos;нормальное состояние&apos;</source>
        <translation>&apos;normal state&apos;</translation>
    </message>
    <message>
        <source>&apos;неверное количество параметров дискретного сигнала&apos;</source>
        <translation>&apos;wrong number of digital channel fields&apos;</translation>
    </message>
    <message>
        <source>Отсутствуют данные об аналоговом сигнале в строке %1</source>
        <translation>Analog channel data missing in line %1</translation>
    </message>
    <message>
        <source>Отсутствуют данные о дискретном сигнале в строке %1</source>
        <translation>Digital channel data missing in line %1</translation>
    </message>
    <message>
        <source>В cтроке %1 неверная информация </source>
        <translation>Line %1 holds invalid information </translation>
    </message>
    <message>
        <source>Строка %1 содержит неправильное значение %2</source>
        <translation>Line %1 holds an invalid value %2</translation>
    </message>
    <message>
        <source>В строке %1 отсутствует необходимое количество значений</source>
        <translation>Line %1 lacks the required number of values</translation>
    </message>
    <message>
        <source>В строке %1 неверный тип данных, %2 не int</source>
        <translation>Line %1 has a wrong data type, %2 is not an int</translation>
    </message>
    <message>
        <source>В строке %1 неверный тип данных, %2 не double</source>
        <translation>Line %1 has a wrong data type, %2 is not a double</translation>
    </message>
    <message>
        <source>В строке %1 значение &quot;%2&quot; не булево, потому что не равно ни %3 (принято как истина), ни %4 (принято как ложь)</source>
        <translation>In line %1 the value &quot;%2&quot; is not boolean, since it equals neither %3 (taken as true) nor %4 (taken as false)</translation>
    </message>
    <message>
        <source>А</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Э</source>
        <translation>R</translation>
    </message>
    <message>
        <source>Э1</source>
        <translation>R1</translation>
    </message>
    <message>
        <source>Ч</source>
        <translation>F</translation>
    </message>
    <message>
        <source>Ф</source>
        <translation>Ph</translation>
    </message>
    <message>
        <source>АЦП</source>
        <translation>ADC</translation>
    </message>
    <message>
        <source>Ампл. значение</source>
        <translation>Amplitude value</translation>
    </message>
    <message>
        <source>Эфф. значение</source>
        <translation>RMS value</translation>
    </message>
    <message>
        <source>Эфф. значение 1-й гармоники</source>
        <translation>Fundamental RMS value</translation>
    </message>
    <message>
        <source>Частота</source>
        <translation>Frequency</translation>
    </message>
    <message>
        <source>Фаза</source>
        <translation>Phase</translation>
    </message>
</context>
<context>
    <name>SaverRunner</name>
    <message>
        <source>Сохранение</source>
        <translation>Saving</translation>
    </message>
    <message>
        <source>Осциллограмма сохранена</source>
        <translation>Record saved</translation>
    </message>
    <message>
        <source>Сохранение отменено</source>
        <translation>Saving cancelled</translation>
    </message>
    <message>
        <source>Ошибка сохранения</source>
        <translation>Save error</translation>
    </message>
    <message>
        <source>Не удалось сохранить осциллограмму.</source>
        <translation>Could not save the record.</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Настройки</source>
        <translation>Settings</translation>
    </message>
    <message>
        <source>Основные</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Вычислитель</source>
        <translation>Calculator</translation>
    </message>
    <message>
        <source>Язык:</source>
        <translation>Language:</translation>
    </message>
    <message>
        <source>Цветовой стиль:</source>
        <translation>Colour style:</translation>
    </message>
    <message>
        <source>Стандартный</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Черно-белый</source>
        <translation>Black and white</translation>
    </message>
    <message>
        <source>Создание замера курсором мыши</source>
        <translation>Create measurements with the mouse cursor</translation>
    </message>
    <message>
        <source>Отображение линии вычислителя</source>
        <translation>Show the calculator line</translation>
    </message>
    <message>
        <source>Открывать файлы COMTRADE в режиме совместимости</source>
        <translation>Open COMTRADE files in compatibility mode</translation>
    </message>
    <message>
        <source>Читать и файлы, отступающие от стандарта: другие годы ревизии, даты месяцем вперёд, несколько частот дискретизации, файлы .cff</source>
        <translation>Also read files that depart from the standard: other revision years, month-first dates, several sampling rates, .cff files</translation>
    </message>
    <message>
        <source>Отображение времени в осциллограммах</source>
        <translation>Time display in records</translation>
    </message>
    <message>
        <source>Показывать в локальном времени устройства, записавшего осциллограмму</source>
        <translation>Show in the local time of the recording device</translation>
    </message>
    <message>
        <source>Показывать в UTC+0</source>
        <translation>Show in UTC+0</translation>
    </message>
    <message>
        <source>Показывать в часовом поясе</source>
        <translation>Show in the time zone</translation>
    </message>
    <message>
        <source>Отображаемые параметры синусоидальных сигналов</source>
        <translation>Displayed quantities of sinusoidal signals</translation>
    </message>
    <message>
        <source>Амплитуда</source>
        <translation>Amplitude</translation>
    </message>
    <message>
        <source>Эффективное значение</source>
        <translation>RMS value</translation>
    </message>
    <message>
        <source>Эффективное значение 1-ой гармоники</source>
        <translation>Fundamental RMS value</translation>
    </message>
    <message>
        <source>Частота</source>
        <translation>Frequency</translation>
    </message>
    <message>
        <source>Фаза</source>
        <translation>Phase</translation>
    </message>
    <message>
        <source>АЦП</source>
        <translation>ADC</translation>
    </message>
    <message>
        <source>Отображаемый параметр сигнала в компактном режиме:</source>
        <translation>Signal quantity shown in compact mode:</translation>
    </message>
    <message>
        <source>Сохранение настроек</source>
        <translation>Saving the settings</translation>
    </message>
    <message>
        <source>Перезапустите Korvane, чтобы применить настройки</source>
        <translation>Restart Korvane to apply the settings</translation>
    </message>
    <message>
        <source>Внимание</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Необходимо выбрать хотя бы один параметр для отображения</source>
        <translation>Select at least one quantity to display</translation>
    </message>
</context>
<context>
    <name>SimpleAChanParModel</name>
    <message>
        <source>Гц</source>
        <translation>Hz</translation>
    </message>
</context>
<context>
    <name>UndoCommands</name>
    <message>
        <source>Установить ноль времени</source>
        <translation>Set time zero</translation>
    </message>
    <message>
        <source>Установить маркер</source>
        <translation>Set a marker</translation>
    </message>
    <message>
        <source>Сбросить все маркеры</source>
        <translation>Clear all markers</translation>
    </message>
    <message>
        <source>Переместить разделитель</source>
        <translation>Move the divider</translation>
    </message>
</context>
<context>
    <name>UnitForCalcSignal</name>
    <message>
        <source>В</source>
        <translation>V</translation>
    </message>
    <message>
        <source>A</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Ом</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Вт</source>
        <translation>W</translation>
    </message>
    <message>
        <source>вар</source>
        <translation>var</translation>
    </message>
    <message>
        <source>Гц</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>Град</source>
        <translation>deg</translation>
    </message>
</context>
<context>
    <name>VerticalMergeHandler</name>
    <message>
        <source>Объединение</source>
        <translation>Joining</translation>
    </message>
</context>
<context>
    <name>Wv2AnalogChannel</name>
    <message>
        <source>В</source>
        <translation>V</translation>
    </message>
    <message>
        <source>А</source>
        <translation>A</translation>
    </message>
    <message>
        <source>Вт</source>
        <translation>W</translation>
    </message>
    <message>
        <source>Ом</source>
        <translation>Ohm</translation>
    </message>
    <message>
        <source>Гц</source>
        <translation>Hz</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>вар</source>
        <translation>var</translation>
    </message>
    <message>
        <source>ВА</source>
        <translation>VA</translation>
    </message>
    <message>
        <source>мк</source>
        <translation>µ</translation>
    </message>
    <message>
        <source>м</source>
        <translation>m</translation>
    </message>
    <message>
        <source>к</source>
        <translation>k</translation>
    </message>
    <message>
        <source>М</source>
        <translation>M</translation>
    </message>
    <message>
        <source>Г</source>
        <translation>G</translation>
    </message>
</context>
<context>
    <name>Wv2DataReader</name>
    <message>
        <source>Ошибка чтения, осциллограмма повреждена!</source>
        <translation>Read error, the record is damaged!</translation>
    </message>
</context>
<context>
    <name>Wv2Loader</name>
    <message>
        <source>Невозможно открыть файл</source>
        <translation>Cannot open the file</translation>
    </message>
    <message>
        <source>Чтение конфигурации</source>
        <translation>Reading the configuration</translation>
    </message>
    <message>
        <source>Чтение данных</source>
        <translation>Reading the data</translation>
    </message>
    <message>
        <source>Отображение</source>
        <translation>Display</translation>
    </message>
    <message>
        <source>Осциллограмма записана устройством </source>
        <translation>Record made by device </translation>
    </message>
    <message>
        <source>ООО &quot;Тессара-Системы&quot; г.Нордгород</source>
        <translation>Tessara Systems LLC, Nordgorod</translation>
    </message>
    <message>
        <source>Объект электроэнергетики: </source>
        <translation>Power facility: </translation>
    </message>
    <message>
        <source>не указан</source>
        <translation>not given</translation>
    </message>
    <message>
        <source>Источник: </source>
        <translation>Source: </translation>
    </message>
    <message>
        <source>Версия ПО: </source>
        <translation>Software version: </translation>
    </message>
    <message>
        <source>не указана</source>
        <translation>not given</translation>
    </message>
    <message>
        <source>Дополнительная информация:</source>
        <translation>Additional information:</translation>
    </message>
    <message>
        <source>Осциллограмма содержит аварийные записи:</source>
        <translation>The record holds fault records:</translation>
    </message>
    <message>
        <source>Дата и время: </source>
        <translation>Date and time: </translation>
    </message>
    <message>
        <source> Авария: </source>
        <translation> Fault: </translation>
    </message>
    <message>
        <source>Не указано</source>
        <translation>Not given</translation>
    </message>
</context>
<context>
    <name>Wv2MetaDataReader</name>
    <message>
        <source>Ошибка чтения блока метаданных</source>
        <translation>Error reading the metadata block</translation>
    </message>
    <message>
        <source>Ошибка чтения строк метаданных</source>
        <translation>Error reading the metadata lines</translation>
    </message>
    <message>
        <source>Ошибка пропуска строк метаданных</source>
        <translation>Error skipping the metadata lines</translation>
    </message>
    <message>
        <source>Ошибка чтения, осциллограмма повреждена!</source>
        <translation>Read error, the record is damaged!</translation>
    </message>
</context>
</TS>
