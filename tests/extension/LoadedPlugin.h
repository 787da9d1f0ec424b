#pragma once
// The built plug-in, loaded the way the application loads it.

#include "extension/CTavrinExtensionInterfaces.h"

#include <QPluginLoader>
#include <QString>

#include <gtest/gtest.h>

// A Qt loader of the plug-in this build made (its path comes from the build).
inline QPluginLoader& PluginLoader()
{
    static QPluginLoader loader(QString::fromUtf8(TAVRIN_PLUGIN_PATH));
    return loader;
}

// The plug-in's root object; fails the test when the plug-in does not load.
inline QObject* LoadedRoot()
{
    QObject* root = PluginLoader().instance();
    EXPECT_NE(root, nullptr) << PluginLoader().errorString().toStdString();
    return root;
}

template <typename Interface>
Interface* RootAs(QObject* root)
{
    return static_cast<Interface*>(root->qt_metacast(qobject_interface_iid<Interface*>()));
}
