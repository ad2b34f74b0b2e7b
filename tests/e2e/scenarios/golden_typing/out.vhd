entity top is
  port (clk : in bit);
end entity top;
