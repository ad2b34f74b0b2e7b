library ieee;
entity top is
end entity top;
