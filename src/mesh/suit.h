// A suit says which mesh hangs on which bone. docs/file-formats.md draws its binary form (BCF) and
// its text form (CMX).
#pragma once

#include <cstdint>
#include <string>

#include "foundation/list.h"
#include "system/path.h"

namespace marlowick {

struct SuitRow {
    std::string BoneName;
    std::string MeshName;
    std::int32_t RowNumber1 = 0;  // kept, never used, like every number below but RowCount
    std::int32_t RowNumber2 = 0;
};

struct SuitRecord {
    std::int32_t Number1 = 0;
    std::int32_t Number2 = 0;
    std::string SuitName;
    std::int32_t Number3 = 0;
    std::int32_t Number4 = 0;
    std::int32_t RowCount = 0;
    List<SuitRow> Rows;  // 1 to RowCount
    std::int32_t Number5 = 0;
};

// The bone that a head's mesh hangs on.
inline constexpr const char* kHeadBone = "HEAD";

// Fills the record from a file with one suit. It reads stream number 1, whatever number was free
// for the file: while another stream is open, it reads that one. Raises 9 for a suit without rows,
// 62 for a file that ends too early, else as FileSystem::open; the stream then stays open.
void gsReadSuitBCF(const Path& bcf, SuitRecord& suit);

// The name of the mesh on the head, out of the text form: the line behind the first one that is
// exactly "HEAD". Raises 62 if there is none; the stream then stays open.
std::string headMeshOfCmx(const Path& cmx);

}  // namespace marlowick
