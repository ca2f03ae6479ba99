#pragma once

// What ms_send_files and ms_receive_file say to each other.

/// One character before each message: how much is done, a mesh, the end of a file, or what is wrong.
enum msMessage : char
{
    msPROGRESS = 'p',
    msMESH = 'm',
    msEND = 'e',
    msFAULT = 'f'
};

/// What comes before the positions of a mesh.
struct msMeshHeader
{
    int number; ///< in its file, from 1
    int n_nodes;
    int n_faces; ///< of triangles and others
    int has_normals;
    int has_texture;
};

/// What comes before the corners of its triangles.
struct msCornersHeader
{
    int n_triangles;
    int in_order; ///< the corners are all nodes as they come, and not sent
};
