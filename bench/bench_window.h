#pragma once

#include <QApplication>
#include <QByteArray>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace lineara::bench {

/// Windows are drawn into memory unless the caller has chosen a screen. To be called before there is an application.
inline void drawIntoMemory()
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

/// What documents keep for their user is kept in a folder that is gone afterwards.
class OwnFolders
{
public:
    OwnFolders()
    {
        for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME"})
            qputenv(folder, folder_.path().toLocal8Bit());
    }

private:
    QTemporaryDir folder_;
};

/// Sizes of families, in persons: those given on the command line, else the usual ones.
inline std::vector<std::uint32_t> familySizes(int argc, char** argv, std::vector<std::uint32_t> usual)
{
    if (argc > 1)
        usual.clear();
    for (int argument = 1; argument < argc; ++argument)
        usual.push_back(static_cast<std::uint32_t>(std::strtoul(argv[argument], nullptr, 10)));
    return usual;
}

/// What a benchmark of documents does in main(): measures families of each size, in an application of its own.
inline int measureFamilies(int argc, char** argv, const std::vector<std::uint32_t>& usual,
                           void (*measure)(std::size_t persons))
{
    drawIntoMemory();
    const OwnFolders folders;
    const QApplication application(argc, argv);
    for (const std::uint32_t persons : familySizes(argc, argv, usual))
        measure(persons);
    return 0;
}

} // namespace lineara::bench
