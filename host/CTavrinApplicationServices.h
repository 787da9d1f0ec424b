#pragma once
// The application's service objects that a plug-in is handed when it is
// loaded (evaluators, factories, the undo manager...). The application owns
// them and installs its pointers through the plug-in's root; the document
// model only keeps the pointers, so that the plug-in's static accessors
// answer with the application's objects. Nothing is installed until the
// application does so: the accessors then answer null.

// Every service installed through a static SetInstance, once.
#define TAVRIN_APPLICATION_SERVICES(X) \
    X(CTavrinEvaluator)                \
    X(CTavrinBSplineEvaluater)         \
    X(CTavrinPolygonTriangulator)      \
    X(CTavrin3DTextGeometryGenerator)  \
    X(CTavrinCreator)                  \
    X(CTavrinEventWatcher)             \
    X(CTavrinSystemHandler)            \
    X(CTavrinUtf8Evaluater)            \
    X(CTavrinBooleanOperationsUtilityBase)

namespace Tavrin {

#define TAVRIN_DECLARE_APPLICATION_SERVICE(Service)      \
    class Service {                                      \
    public:                                              \
        virtual ~Service() = default;                    \
        static Service* GetInstance();                   \
        /* Not owned: installing another one, or null, */ \
        /* leaves the previous one to the application. */ \
        static void SetInstance(Service* instance);      \
    };
TAVRIN_APPLICATION_SERVICES(TAVRIN_DECLARE_APPLICATION_SERVICE)
#undef TAVRIN_DECLARE_APPLICATION_SERVICE

class CTavrinArchivable;
class CTavrinBasic3DVectorsTable;

// Services with operations of their own that the animation model calls. As
// for the others, GetInstance answers the installed object or null;
// getInstance answers the installed object, or the model's own when the
// application installed none, so that the operations always have a target.
class CTavrinArchivableFactory {
public:
    virtual ~CTavrinArchivableFactory() = default;
    static CTavrinArchivableFactory* GetInstance();
    static void SetInstance(CTavrinArchivableFactory* instance);
    static CTavrinArchivableFactory* getInstance();

    // A new copy of source owned by the caller, of the same kind; null for
    // the kinds the factory cannot make (the model's own makes basic
    // materials, basic lights and basic vector tables).
    virtual CTavrinArchivable* CreateArchivableCopy(const CTavrinArchivable* source) const;
};

class CTavrinTablesCreator {
public:
    virtual ~CTavrinTablesCreator() = default;
    static CTavrinTablesCreator* GetInstance();
    static void SetInstance(CTavrinTablesCreator* instance);
    static CTavrinTablesCreator* getInstance();

    // A new empty table of vectors outside any document, owned by the caller.
    virtual CTavrinBasic3DVectorsTable* CreateBasic3DVectorsTable() const;
};

// The undo manager spells its installer in lower camel case.
class CTavrinUndoManager {
public:
    virtual ~CTavrinUndoManager() = default;
    static CTavrinUndoManager* instance();
    static void setInstance(CTavrinUndoManager* manager);
};

} // namespace Tavrin
