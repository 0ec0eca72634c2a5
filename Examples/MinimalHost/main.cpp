// Shows the pane in a window. With an argument it draws the pane into that file and ends.
#include <Platform/Interface/PreferencePane.h>
#include <QtCore/QPluginLoader>
#include <QtWidgets/QApplication>
#include "MemoryHost.h"
// Step 9: load the pane, show it, and destroy it before the host.
int main(int argumentCount, char **arguments) {
    QApplication qt(argumentCount, arguments);
    Classes classes;
    QPluginLoader loader(PANE);
    auto *plugIn = qobject_cast<PreferencePanePlugIn *>(loader.instance());
    const auto pane = plugIn ? plugIn->makePreferencePane(loader.metaData()["MetaData"].toObject())
                             : failure({.localizedDescription = loader.errorString()});
    if (!pane) {
        NSApp()->presentError(pane.error());
        return EXIT_FAILURE;
    }
    (*pane)->loadMainView();
    (*pane)->willSelect();
    (*pane)->mainView()->show();
    const bool isDone = argumentCount > 1 ? (*pane)->mainView()->grab().save(arguments[1])
                                          : QApplication::exec() == EXIT_SUCCESS;
    (*pane)->willDeselect();
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
