#include "msSending.h"

#include "msEnding.h"
#include "msImport.h"
#include "msMessages.h"

#include "flMessages.h"

#include <exception>
#include <new>
#include <ostream>
#include <type_traits>

namespace
{
template <class Value>
void send(std::ostream& os, const Value& value)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    os.write(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Value>
void send_all(std::ostream& os, const Value* values, int count)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    os.write(reinterpret_cast<const char*>(values), static_cast<std::streamsize>(sizeof(Value)) * count);
}

void send_mesh(std::ostream& os, const msMesh& mesh)
{
    send(os, msMESH);
    send(os, msMeshHeader{mesh.number, mesh.n_nodes, mesh.n_faces, mesh.normals != nullptr, mesh.texture != nullptr});
    send_all(os, mesh.positions, 3 * mesh.n_nodes);
    // These are gathered while the other side is busy with the positions.
    const std::vector<int> corners = mesh.corners();
    const int count = static_cast<int>(corners.size());
    bool in_order = count == mesh.n_nodes;
    for (int i = 0; i < count && in_order; ++i)
        in_order = corners[static_cast<std::size_t>(i)] == i;
    send(os, msCornersHeader{count / 3, in_order});
    if (!in_order)
        send_all(os, corners.data(), count);
    if (mesh.normals)
        send_all(os, mesh.normals, 3 * mesh.n_nodes);
    if (mesh.texture)
        send_all(os, mesh.texture, 3 * mesh.n_nodes);
    os.flush();
}
}

void ms_send_files(const std::vector<std::string>& files, std::ostream& os)
{
    const ms_progress progress = [&os](double share)
    {
        send(os, msPROGRESS);
        send(os, share);
        os.flush();
    };
    for (const std::string& file : files)
    {
        std::string fault;
        try
        {
            ms_import(
                file, ms_ending(file), [&os](const msMesh& mesh) { send_mesh(os, mesh); }, fault, progress);
        }
        catch (const std::bad_alloc&)
        {
            fault = ms_no_memory;
        }
        catch (const std::exception& exception)
        {
            fault = fl_printable(exception.what());
        }
        send(os, fault.empty() ? msEND : msFAULT);
        if (fault.empty())
            continue;
        send(os, static_cast<int>(fault.size()));
        send_all(os, fault.data(), static_cast<int>(fault.size()));
        return;
    }
}
