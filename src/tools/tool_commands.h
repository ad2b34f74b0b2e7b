// Handlers of the compiler and tool commands.
#pragma once

namespace ruvo {

int VsystemOptions();
int VsystemVHDL();
int VsystemVerilog();
int LeonardoCompile();
int LeonardoOptions();
int SynplifyVhdl();
int SynplifyVerilog();
int NextError();
int PrevError();
int ToolOptions();
int RunTool1();
int RunTool2();
int RunTool3();
int RunTool4();
int RunTool5();
int RunTool6();

} // namespace ruvo
