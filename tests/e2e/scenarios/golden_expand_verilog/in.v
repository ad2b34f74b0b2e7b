module m;
endmodule
