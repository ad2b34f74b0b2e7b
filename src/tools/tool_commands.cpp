// Handlers of the compiler and tool commands; each is its own function so that the handler
// lookup by address tells the rows apart.
#include "tools/tool_commands.h"

#include "tools/error_list.h"
#include "tools/leonardo.h"
#include "tools/user_tools.h"
#include "tools/vsystem.h"

namespace ruvo {

int VsystemVHDL() {
    return compileWithVsystem(ModeVcom);
}
int VsystemVerilog() {
    return compileWithVsystem(ModeVlog);
}
int LeonardoCompile() {
    return leonardoCompile();
}
// Placeholders kept in the table: they do nothing, deliberately.
int SynplifyVhdl() {
    return 0;
}
int SynplifyVerilog() {
    return 0;
}
int NextError() {
    nextError();
    return 0;
}
int PrevError() {
    prevError();
    return 0;
}
int RunTool1() {
    return runTool(1);
}
int RunTool2() {
    return runTool(2);
}
int RunTool3() {
    return runTool(3);
}
int RunTool4() {
    return runTool(4);
}
int RunTool5() {
    return runTool(5);
}
int RunTool6() {
    return runTool(6);
}

} // namespace ruvo
