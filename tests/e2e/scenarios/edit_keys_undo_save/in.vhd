entity counter is
  port (clk : in bit);
end counter;
