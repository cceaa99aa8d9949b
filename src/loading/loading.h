// Contact, boundary and loading: the sections of the main deck between the global control and the part descriptions,
// and the accelerometer file.
#pragma once

#include "reader/pass.h"

// The sections, each with its banner, in the order in which the main deck has them.
void contact_section();    // "Contact Section"
void boundary_section();   // "Boundary and Initial Conditions Definition"
void discrete_elements();  // "Discrete Element Definitions"
void load_curves();        // "Load Curve Definitions"
void transformations();    // "Transformation Definitions"
void accelerometers();     // "Accelerometer Definition", in the accelerometer file

// The pass tables, for docs and tests.
extern const Pass contact_keywords;
extern const Pass boundary_keywords;
extern const Pass curve_keywords;
extern const Pass accelerometer_keywords;

// Contacts. Each adds to a running count.
void contact();         // *CONTACT_...: the first one writes the global contact options
void surfcon2tnodes();  // automatic contacts as tied nodes

// Boundary conditions.
void bnonreflect();        // *BOUNDARY_NON_REFLECTING
void bprescribedmotion();  // *BOUNDARY_PRESCRIBED_MOTION_NODE, _SET
void bspc();               // *BOUNDARY_SPC_NODE, _SET
void bsphsym();            // *BOUNDARY_SPH_SYMMETRY_PLANE
void bsymwfail();          // *BOUNDARY_SYMMETRY_FAILURE

// Boxes and local coordinate systems.
void definebox();          // *DEFINE_BOX
void definecoordnodes();   // *DEFINE_COORDINATE_NODES
void definecoordsystem();  // *DEFINE_COORDINATE_SYSTEM

// Initial conditions.
void ivelocity();  // *INITIAL_VELOCITY
void ivelogen();   // *INITIAL_VELOCITY_GENERATION
void idetonat();   // *INITIAL_DETONATION

// Loads.
void loadblast();   // *LOAD_BLAST
void loadnode();    // *LOAD_NODE_POINT, _SET
void loadsegset();  // *LOAD_SEGMENT_SET
void loadseg();     // *LOAD_SEGMENT

// Curves and accelerometers.
void definecurve();       // *DEFINE_CURVE
void coordnodes2accel();  // *DEFINE_COORDINATE_NODES as accelerometers
