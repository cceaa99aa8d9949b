// The fixed lines of the contact section: the options that hold for all contacts, and the templates.
#pragma once

// What the first contact of a deck sets for all contacts.
struct ContactOptions {
    int scheme;
    int searches;           // iterations between two searches for the nearest neighbours
    int soft;               // element penalty formulation
    float penalty_scale;    // element penalty scale factor
    float shell_thickness;  // shell thickness scale factor
};

// The options as the first contact sets them.
void write_contact_options(const ContactOptions& options);

// The options of a deck without contact.
void write_default_contact_options();

// Inactive lines to start from.
void write_thermal_and_friction_template();
void write_tied_node_template();
