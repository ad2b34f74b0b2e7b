// Handlers of the about box, the Window menu, and of commands whose subsystems are not built
// yet (those do nothing and return 0).
#pragma once

namespace ruvo {

int VsystemOptions();
int VsystemVHDL();
int VsystemVerilog();
int LeonardoCompile();
int SynplifyVhdl();
int SynplifyVerilog();
int NextError();
int PrevError();
int LeonardoOptions();
int About();
int ToolOptions();
int RunTool1();
int RunTool2();
int RunTool3();
int RunTool4();
int RunTool5();
int RunTool6();
int WindowCascade();
int WindowTileVertical();
int WindowTileHorizontal();
int WindowNext();
int WindowPrevious();
int WindowClose();

} // namespace ruvo
