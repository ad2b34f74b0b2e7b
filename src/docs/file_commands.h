// Command handlers of the File menu: new, open, insert, save, save as, save all, exit, recent.
#pragma once

namespace ruvo {

int NewFile();
int LoadFile();
int InsertFile();
int SaveFile();
int SaveFileAs();
int SaveAll();
int ExitApp();
int LoadMRUFile1();
int LoadMRUFile2();
int LoadMRUFile3();
int LoadMRUFile4();
int LoadMRUFile5();

} // namespace ruvo
