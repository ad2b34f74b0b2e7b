entity counter is
  port (clk : in bit);
  -- CLck reset
end counter;
