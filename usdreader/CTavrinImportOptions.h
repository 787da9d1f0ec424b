#pragma once

// What the application may choose about one import; the defaults are what
// it gets without asking. The request carries these to the reader state.
struct CTavrinImportOptions {
    // Cube, Sphere, Cylinder, Cone, Capsule and Plane prims become 3D
    // objects with the triangle mesh OpenUSD's imaging draws for them. Off,
    // they make no node, as any other prim type the import does not read.
    bool shapes = true;
    // What instanceable prims bring in is converted below each instance as
    // if it were authored there. Off, an instance makes its own node only.
    bool instances = true;
    // A point instancer makes a node per shown instance, holding a copy of
    // its prototype; the prototypes make none where they are authored. Off,
    // the instancer makes no node and its prototypes are read in place.
    bool pointInstancers = true;
};
