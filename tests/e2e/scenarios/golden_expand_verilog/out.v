module m;
always @(*) begin
	
end
endmodule
