-- Counter with mistakes that the stand-in compilers report.
-- vcom: noise 400
library ieee;
use ieee.std_logic_1164.all;

entity counter is
	port (clk : in std_logic; q : out std_logic_vector(3 downto 0));
end entity counter;

architecture rtl of counter is
	signal count : unsigned(3 downto 0); -- vcom: twice Unknown identifier "unsigned".
	signal spare : std_logic; -- vcom: warning Signal "spare" is never used.
begin
	process (clk)
	begin
		if rising_edge(clk) then -- elsyn: warning Clock edge on a port.
			count <= count + 1; -- vcom: stderr No feasible entries for "+".
		end if;
	end process;
	q <= count; -- vcom: other Type mismatch (no stepping). -- elsyn: error Width mismatch.
end architecture rtl;
