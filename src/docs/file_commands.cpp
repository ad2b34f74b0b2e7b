// Command handlers of the File menu. Placeholders until the document subsystem lands.
#include "docs/file_commands.h"

namespace ruvo {

int NewFile() { return 0; }
int LoadFile() { return 0; }
int InsertFile() { return 0; }
int SaveFile() { return 0; }
int SaveFileAs() { return 0; }
int SaveAll() { return 0; }
int ExitApp() { return 0; }
int LoadMRUFile1() { return 0; }
int LoadMRUFile2() { return 0; }
int LoadMRUFile3() { return 0; }
int LoadMRUFile4() { return 0; }
int LoadMRUFile5() { return 0; }

} // namespace ruvo
