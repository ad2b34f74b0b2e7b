# Templates for Verilog (IEEE 1364-2005), loaded by the [Templates] section of ruvo.ini.
# A header is [name(parameter, ...)]; the body runs to the next line that begins with "[".
# $1$ to $5$ stand for the values of the parameters, asked for when the template is inserted.

[module(Module)]
module $1$ (
	input  wire clk,
	input  wire rst_n
);

endmodule
[module with parameter(Module, Parameter, Value)]
module $1$ #(
	parameter $2$ = $3$
) (
	input  wire clk,
	input  wire rst_n
);

endmodule
[always clocked(Clock, Reset)]
always @(posedge $1$ or negedge $2$) begin
	if (!$2$) begin
		
	end else begin
		
	end
end
[always synchronous(Clock, Reset)]
always @(posedge $1$) begin
	if ($2$) begin
		
	end else begin
		
	end
end
[always combinational()]
always @(*) begin
	
end
[case(Selector)]
case ($1$)
	: begin
	end
	default: begin
	end
endcase
[if(Condition)]
if ($1$) begin
	
end else begin
	
end
[instance(Module, Instance)]
$1$ $2$ (
	.clk   (clk),
	.rst_n (rst_n)
);
[generate for(Variable, Count, Label)]
genvar $1$;
generate
	for ($1$ = 0; $1$ < $2$; $1$ = $1$ + 1) begin : $3$
		
	end
endgenerate
[function(Name, Range)]
function [$2$] $1$;
	input [$2$] value;
	begin
		$1$ = value;
	end
endfunction
[task(Name)]
task $1$;
	input [7:0] value;
	begin
		
	end
endtask
[testbench(Module, Half period)]
`timescale 1ns / 1ps

module $1$_tb;
	reg clk = 1'b0;
	reg rst_n = 1'b0;

	always #($2$) clk = ~clk;

	$1$ dut (
		.clk   (clk),
		.rst_n (rst_n)
	);

	initial begin
		$dumpfile("$1$_tb.vcd");
		$dumpvars(0, $1$_tb);
		#(4 * $2$) rst_n = 1'b1;

		#(100 * $2$);
		$display("simulation finished");
		$finish;
	end
endmodule
