# Qt's headers, compiled once for all targets: a build takes half the time.
#
#   vrk_precompiled(TARGET link...)
#       TARGET uses precompiled Qt headers: those of the widgets, or if it links none of them (every link is
#       Qt::Core or a floor below the client) those of the core. Every source must still include what it
#       uses: a build with VRK_PRECOMPILE=OFF checks this.
option(VRK_PRECOMPILE "Compile the toolkit's headers once" ON)

set(VRK_CORE_HEADERS <algorithm> <functional> <memory> <vector> <QByteArray> <QCoreApplication> <QDateTime> <QDir> <QFile>
    <QHash> <QJsonObject> <QObject> <QPointer> <QRegularExpression> <QSet> <QSettings> <QString> <QStringList> <QTextCodec>
    <QTimer> <QUrl> <QVariant> <QVector> <QAbstractItemModel>)
set(VRK_GUI_HEADERS ${VRK_CORE_HEADERS} <QtGui> <QtWidgets>)

function(vrk_precompiled target)
    if(NOT VRK_PRECOMPILE)
        return()
    endif()
    set(kind GUI)
    set(others ${ARGN})
    list(REMOVE_ITEM others Qt::Core SQLite::SQLite3 vrk_libpq OpenSSL::Crypto vrk_hfn vrk_store vrk_demo vrk_parser vrk_hfn_testing)
    if(NOT others)
        set(kind CORE)
    endif()
    string(TOLOWER vrk_precompiled_${kind} owner)
    if(NOT TARGET ${owner})
        set(empty "${CMAKE_BINARY_DIR}/${owner}.cpp")
        file(CONFIGURE OUTPUT "${empty}" CONTENT "// The precompiled headers need a source.\n")
        add_library(${owner} OBJECT "${empty}")
        set_target_properties(${owner} PROPERTIES AUTOMOC OFF AUTORCC OFF)
        set(toolkit_CORE Qt::Core)
        set(toolkit_GUI Qt::Widgets)
        target_link_libraries(${owner} PRIVATE ${toolkit_${kind}} vrk_settings)
        target_precompile_headers(${owner} PRIVATE ${VRK_${kind}_HEADERS})
    endif()
    target_precompile_headers(${target} REUSE_FROM ${owner})
endfunction()
