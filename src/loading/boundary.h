// What the boundary section's files share among themselves.
#pragma once

// A definition holds for one node or for a node set.
enum class Target { node, set };

struct PrescribedMotion {
    int id, dof, vad, lcid;
    float sf;
};

// The definition's lines, all of them comments: the analyst checks and enables them.
void write_prescribed_motion(Target target, const PrescribedMotion& motion);

// The templates behind the converted definitions: the first in every deck, the others in a comprehensive one.
void write_initial_velocity_template();
void write_boundary_templates();
