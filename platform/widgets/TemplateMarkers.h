#pragma once

#include <QtGlobal>

/// A marker that may be the first or second one of a template.
struct TemplateMarker {
    const char* label; ///< source text in the context of TemplateMarkers
    const char* icon;  ///< resource path, which is the value of the property; null for no marker
};

/// The available markers in the order of the lists.
constexpr TemplateMarker templateMarkers[] = {
    {QT_TRANSLATE_NOOP("TemplateMarkers", "нет"), nullptr},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Авария"), ":/markers/exclamation_mark.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Допуск бригады"), ":/markers/worker_red.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Завершение работ бригады"), ":/markers/worker_blue.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Передача вышестоящей организации"), ":/markers/arrow_up_blue.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Передача от вышестоящей организации"),
     ":/markers/arrow_down_red.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Снято заземление"), ":/markers/thunder_blue.png"},
    {QT_TRANSLATE_NOOP("TemplateMarkers", "Установлено заземление"), ":/markers/thunder_red.png"},
};
