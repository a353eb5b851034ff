#include "engine/jet/Disk.h"

namespace engine::jet {

namespace {
Disk* diskInUse = nullptr;
}

Disk& DiskInUse() {
    return diskInUse != nullptr ? *diskInUse : SystemDisk();
}

void UseDisk(Disk* disk) {
    diskInUse = disk;
}

}  // namespace engine::jet
